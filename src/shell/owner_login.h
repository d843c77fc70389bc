// The login, the program's first window: a user name, a password, and the two levels of access,
// told apart by the password alone.
#pragma once

#include "shell/screen.h"

namespace tela {

class OwnerLogin : public Screen {
 public:
  explicit OwnerLogin(AppState& app);

  /// Hides `Command1` and locks `Text2`.
  void load() override;

  /// Logs in at full level without a word typed, as a script's `open` does when nobody has yet.
  void enter_at_full_level();

 private:
  void enter_name();
  void enter_password();
  /// Connects and shows the main window, at the level that the text of `Text2` stands for. If
  /// either fails the login stays, to be tried again.
  void StartMainWindow();
};

}  // namespace tela
