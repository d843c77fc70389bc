// Every screen of the program. A new screen is one line in registry.cpp.
#pragma once

#include <span>

#include "shell/screen.h"

namespace tela {

std::span<const ScreenEntry> all_screens();

}  // namespace tela
