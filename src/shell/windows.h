// The windows that are open: which screens exist, in which order they lie, and the one rule by
// which a screen is opened.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/action.h"
#include "shell/report_window.h"
#include "shell/screen.h"

namespace tela {

class MainWindow;
class OwnerLogin;

class Windows {
 public:
  /// `registry` lists every screen that can be opened, `actions` what else the menu runs; both must
  /// outlive this object.
  explicit Windows(std::span<const ScreenEntry> registry,
                   std::span<const ActionEntry> actions = {});
  ~Windows();

  bool knows(std::string_view screen) const;
  /// The action of that name, else null.
  const ActionEntry* find_action(std::string_view name) const;

  /// Creates the screen if it does not exist yet (which loads it), shows it and brings it to the
  /// front. Throws UserActionError if there is no such screen.
  Screen& open(AppState& app, std::string_view screen);
  /// Closes a screen. Nothing happens if it is not open.
  void close(AppState& app, std::string_view screen);
  /// Closes the screen and shows it as new.
  void refresh(AppState& app, std::string_view screen);

  /// The screen if it is open, else null.
  Screen* find(std::string_view screen) const;
  /// The front child window; null if none is open.
  Screen* current() const { return stack_.empty() ? nullptr : stack_.back().get(); }
  /// The open screens, front first.
  std::vector<Screen*> stacking_order() const;

  MainWindow* main() const { return main_.get(); }
  OwnerLogin* login() const { return login_.get(); }

  /// Creates the login, the program's first window, which the display shows by itself.
  OwnerLogin& create_login(AppState& app);
  void close_login(AppState& app);
  /// Creates and loads the main window; throws what its load throws, and then there is none.
  MainWindow& open_main(AppState& app);

  /// The preview window, which is no child of the main window; null if none is open.
  const ReportWindow* preview() const { return preview_ ? &*preview_ : nullptr; }
  void show_preview(AppState& app, ReportWindow preview);
  void close_preview(AppState& app);

  /// Destroys the screens that were closed during the event that has just ended.
  void destroy_closed() { closed_.clear(); }

 private:
  std::span<const ScreenEntry> registry_;
  std::span<const ActionEntry> actions_;
  std::vector<std::unique_ptr<Screen>> stack_;   // back to front
  std::vector<std::unique_ptr<Screen>> closed_;  // their event may still be running
  std::unique_ptr<OwnerLogin> login_;
  std::unique_ptr<MainWindow> main_;
  std::optional<ReportWindow> preview_;
};

}  // namespace tela
