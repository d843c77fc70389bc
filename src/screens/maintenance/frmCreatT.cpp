#include "screens/maintenance/frmCreatT.h"

#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/display.h"

namespace tela {

frmCreatT::frmCreatT(AppState& app)
    : Screen(app, "frmCreatT", "frmCreatT",
             tab_order(button("CmdTable", "CREATE &TABLE"), button("Command1", "Command1"),
                       button("cmdClose", "&CLOSE"))) {
  on_press("CmdTable", [this] {
    Transaction empty(*this->app().Con);
    empty.commit();
    this->app().display.message({"TABLE CREATED - OK", Icon::information, Buttons::ok, ""});
  });
  close_on("cmdClose");
}

}  // namespace tela
