// The state of screens and of the main window as JSON, as `show` and `main` print it.
#pragma once

#include "display/scripted/scripted_display.h"
#include "platform/database/database_client.h"
#include "shell/main_window.h"
#include "shell/windows.h"

namespace tela {

/// A screen's state: its controls' texts, lists, disabled controls, grids and chart.
Json screen_json(const Screen& screen);

/// The main window's state: caption, visible panel, menus, and the open screens, front first.
Json main_json(const MainWindow& main, const Windows& windows);

/// The rows of a query, or {"done":true} for a statement that returns none.
Json rows_json(const RowSet& rows);

}  // namespace tela
