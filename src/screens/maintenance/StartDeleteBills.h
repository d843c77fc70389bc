// Start delete bills: the wipe of the sales. An action without a screen.
#pragma once

#include "shell/app_state.h"

namespace tela {

/// Asks, and on OK empties the tables of bills and sets the bill number back to 0, all in one
/// transaction whose way back is kept. A failure undoes all of it and goes on up.
void StartDeleteBills(AppState& app);

}  // namespace tela
