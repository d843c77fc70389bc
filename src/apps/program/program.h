// The program put together: the platform's adapters, the screens, and the one state, for whichever
// display it runs on.
#pragma once

#include "platform/paths/paths.h"
#include "shell/app_state.h"
#include "shell/windows.h"

namespace tela {

/// The platform of a real machine under a platform root. An app may put its own in the place of a
/// member, or around it.
Platform make_platform(const Paths& paths);

class Program {
 public:
  /// `display` must outlive the program. The login is there, nothing else.
  Program(Platform platform, Display& display);

  AppState& state() { return state_; }

 private:
  Platform platform_;
  Windows windows_;
  AppState state_;
};

}  // namespace tela
