// Every screen of the program. A new screen is one line in registry.cpp.
#pragma once

#include <span>

#include "shell/action.h"
#include "shell/screen.h"

namespace tela {

std::span<const ScreenEntry> all_screens();

/// Every action that the menu runs without a screen.
std::span<const ActionEntry> all_actions();

}  // namespace tela
