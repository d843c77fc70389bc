// What the main window offers, as data: names, captions and the screens behind them.
#pragma once

#include <vector>

#include "shell/main_window.h"

namespace tela {

std::vector<Menu> main_menus();
std::vector<ToolButton> main_toolbar();
std::vector<Panel> main_panels();

}  // namespace tela
