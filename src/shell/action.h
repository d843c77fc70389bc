// What the menu runs without a screen.
#pragma once

#include <string_view>

namespace tela {

struct AppState;

/// An action that is opened by a name, as a screen is, but has no window.
struct ActionEntry {
  std::string_view name;
  void (*run)(AppState&);
};

}  // namespace tela
