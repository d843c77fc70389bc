#include "shell/owner_login.h"

#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/display.h"
#include "shell/failure.h"
#include "shell/main_window.h"
#include "shell/windows.h"

namespace tela {

namespace {

constexpr std::string_view kOwner = "KESTR";  // the user name, and the restricted level's password
constexpr std::string_view kFullLevel = "KESTR472";

std::string upper(std::string text) {
  for (char& letter : text)
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return text;
}

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(text_box("Text1", "USER NAME").selected_on_focus());
  all.push_back(text_box("Text2", "PASSWORD").selected_on_focus());
  all.back().password = true;
  all.push_back(button("Command1", "O K"));
  all.push_back(button("Command2", "CANCEL"));
  return all;
}

}  // namespace

OwnerLogin::OwnerLogin(AppState& app)
    : Screen(app, "frmownerpassword", "OWNER PASS WORD", controls()) {
  on_key("Text1", Key::enter, [this] { enter_name(); });
  on_key("Text2", Key::up, [this] { focus("Text1"); });
  on_key("Text2", Key::enter, [this] { enter_password(); });
  on_press("Command1", [this] { StartMainWindow(); });
  on_press("Command2", [this] {
    this->app().windows.close_login(this->app());
    this->app().display.exit_program();
  });
}

void OwnerLogin::load() {
  form().at("Command1").visible = false;
  form().at("Text2").locked = true;
}

void OwnerLogin::enter_name() {
  form().set_text("Text1", upper(form().text("Text1")));
  if (form().text("Text1") != kOwner) {
    form().set_text("Text1", "");
    focus("Text1");
    return;
  }
  form().at("Text2").locked = false;
  focus("Text2");
}

void OwnerLogin::enter_password() {
  form().set_text("Text2", upper(form().text("Text2")));
  if (form().text("Text2") == kFullLevel || form().text("Text2") == kOwner)
    return StartMainWindow();
  form().set_text("Text2", "");
  app().display.message(
      {"Enter the Correct Password", Icon::critical, Buttons::ok, app().ShopName});
}

void OwnerLogin::enter_at_full_level() {
  run_event(app(), [this] {
    form().set_text("Text2", std::string(kFullLevel));
    StartMainWindow();
  });
  app().windows.destroy_closed();
}

void OwnerLogin::StartMainWindow() {
  const std::string& password = form().text("Text2");
  if (password != kOwner && password != kFullLevel) return;
  ConnectDatabase(app());
  if (!app().Con) return;
  MainWindow& main = app().windows.open_main(app());
  if (password == kOwner) main.switch_off("ProfitReport");
  app().windows.close_login(app());
}

}  // namespace tela
