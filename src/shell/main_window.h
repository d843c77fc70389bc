// The main window: a multi-document frame with a menu bar of seven menus, a toolbar of five buttons
// and four button panels. It does no reporting of its own.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "shell/screen.h"

namespace tela {

/// An entry of a menu, or a button of a panel. `opens` names a screen; empty: no screen.
struct MenuEntry {
  std::string name;
  std::string caption;
  std::string opens;
  bool enabled = true;
};

struct Menu {
  std::string name;
  std::string caption;
  std::vector<MenuEntry> entries;
  bool enabled = true;
};

struct ToolButton {
  std::string caption;
  std::string key;
};

struct Panel {
  std::string name;
  std::vector<MenuEntry> buttons;  ///< top to bottom; every panel ends in `CmdExit`
};

class MainWindow : public Screen {
 public:
  explicit MainWindow(AppState& app);

  /// The start-up load: the bill's trailer lines, the report path, the printer settings, and the
  /// caption. Throws what the database throws; the window is then not shown.
  void load() override;

  const std::vector<Menu>& menus() const { return menus_; }
  const std::vector<ToolButton>& toolbar() const { return toolbar_; }
  const std::vector<Panel>& panels() const { return panels_; }
  /// The name of the panel that is shown; empty if none is.
  const std::string& visible_panel() const { return visible_panel_; }

  void switch_off(std::string_view menu);

  // What the user does. All throw UserActionError for what cannot be clicked.
  void click_menu(std::string_view entry);
  void click_toolbar(std::string_view key);
  /// A button of the panel that is shown.
  void click_panel(std::string_view button);

  /// Opens a screen by its name, as one event. Nothing happens for a screen that does not exist.
  void open_screen(std::string_view screen);

 private:
  /// Opens what the entry opens; one without an action says so.
  void click(const MenuEntry& entry);

  std::vector<Menu> menus_;
  std::vector<ToolButton> toolbar_;
  std::vector<Panel> panels_;
  std::string visible_panel_;
};

}  // namespace tela
