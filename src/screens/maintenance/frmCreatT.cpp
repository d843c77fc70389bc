#include "screens/maintenance/frmCreatT.h"

#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/display.h"
#include "shell/windows.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(button("CmdTable", "CREATE &TABLE"));
  all.push_back(button("Command1", "Command1"));
  all.push_back(button("cmdClose", "&CLOSE"));
  return all;
}

}  // namespace

frmCreatT::frmCreatT(AppState& app) : Screen(app, "frmCreatT", "frmCreatT", controls()) {
  on_press("CmdTable", [this] {
    Transaction empty(*this->app().Con);
    empty.commit();
    this->app().display.message({"TABLE CREATED - OK", Icon::information, Buttons::ok, ""});
  });
  on_press("cmdClose", [this] { this->app().windows.close(this->app(), name()); });
}

}  // namespace tela
