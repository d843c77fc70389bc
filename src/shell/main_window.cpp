#include "shell/main_window.h"

#include <algorithm>
#include <stdexcept>

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/display.h"
#include "shell/failure.h"
#include "shell/main_menu.h"
#include "shell/windows.h"

namespace tela {

namespace {

std::string setting_text(const Recordset& rs, int position) {
  return std::string(trimmed(field_text(rs.field(position))));
}

std::int16_t setting_number(const Recordset& rs, int position) {
  const auto number = whole_number<std::int16_t>(field_number(rs.field(position)));
  if (!number)
    throw std::runtime_error("The printer setting " + rs.field_info(position).name + ", " +
                             field_text(rs.field(position)) + ", is no small whole number.");
  return *number;
}

void load_bill_lines(AppState& app) {
  Recordset words;
  words.open("select tword1,tword2,tword3 from tword", *app.Con);
  app.BillLine1 = setting_text(words, 0);
  app.BillLine2 = setting_text(words, 1);
  app.BillLine3 = setting_text(words, 2);
  words.close();
}

void load_report_path(AppState& app) {
  const Recordset& rs = OpenRs(app, "Select CrReportPath from CrPath");
  app.CrReportPath = setting_text(rs, 0);
  CloseRs(app);
}

void load_printer_settings(AppState& app) {
  const Recordset& rs = OpenRs(
      app, "Select PrintNo,PrinterType,PortNo,PrinterName,PrintTop,PrintEnd from PrinterSet");
  app.PrintNo = setting_number(rs, 0);
  app.PrinterType = setting_text(rs, 1);
  app.PortNo = setting_text(rs, 2);
  app.PrinterName = setting_text(rs, 3);
  app.PrintTop = setting_number(rs, 4);
  app.PrintEnd = setting_number(rs, 5);
  CloseRs(app);
}

const MenuEntry* find_entry(const std::vector<MenuEntry>& entries, std::string_view name) {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&](const MenuEntry& entry) { return entry.name == name; });
  return found == entries.end() ? nullptr : &*found;
}

}  // namespace

MainWindow::MainWindow(AppState& app)
    : Screen(app, "MDIReport", "", {}),
      menus_(main_menus()),
      toolbar_(main_toolbar()),
      panels_(main_panels()) {}

void MainWindow::load() {
  set_caption(app().ShopName);
  load_bill_lines(app());
  load_report_path(app());
  load_printer_settings(app());
  set_caption(app().ShopName + "  - ");
  visible_panel_.clear();
}

void MainWindow::switch_off(std::string_view menu) {
  for (Menu& known : menus_)
    if (known.name == menu) known.enabled = false;
}

void MainWindow::click(const MenuEntry& entry) {
  if (entry.opens.empty())
    app().display.hint("\"" + std::string(trimmed(entry.caption)) + "\" has no action.");
  open_screen(entry.opens);
}

void MainWindow::open_screen(std::string_view screen) {
  if (const ActionEntry* action = app().windows.find_action(screen))
    return run_event(app(), [&] { action->run(app()); });
  if (!app().windows.knows(screen)) return;
  run_event(app(), [&] { app().windows.open(app(), screen); });
  app().windows.destroy_closed();
}

void MainWindow::click_menu(std::string_view entry) {
  for (const Menu& menu : menus_) {
    const MenuEntry* found = find_entry(menu.entries, entry);
    if (!found) continue;
    if (!menu.enabled || !found->enabled)
      throw UserActionError("The menu entry " + found->name + " is switched off.");
    return click(*found);
  }
  throw UserActionError("There is no menu entry " + std::string(entry) + ".");
}

void MainWindow::click_toolbar(std::string_view key) {
  const auto known = std::find_if(toolbar_.begin(), toolbar_.end(),
                                  [&](const ToolButton& button) { return button.key == key; });
  if (known == toolbar_.end())
    throw UserActionError("There is no toolbar button " + std::string(key) + ".");
  if (key == "sales") visible_panel_ = "Picture1";
  if (key == "purchase") visible_panel_ = "Picture3";
  if (key == "exit") app().display.exit_program();
  if (key == "tax" || key == "printer")
    app().display.hint("\"" + known->caption + "\" has no action.");
}

void MainWindow::click_panel(std::string_view button) {
  const auto panel = std::find_if(panels_.begin(), panels_.end(),
                                  [&](const Panel& shown) { return shown.name == visible_panel_; });
  if (panel == panels_.end()) throw UserActionError("No panel is shown.");
  const MenuEntry* found = find_entry(panel->buttons, button);
  if (!found)
    throw UserActionError("The panel " + panel->name + " has no button " + std::string(button) +
                          ".");
  if (found->name == "CmdExit") {
    visible_panel_.clear();
    return;
  }
  click(*found);
}

}  // namespace tela
