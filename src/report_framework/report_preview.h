// The preview: a report file and a query handed to the report engine, and the document that comes
// back shown in the window `form1`.
#pragma once

#include <string_view>

#include "shell/app_state.h"

namespace tela {

/// Closes the old preview, sets `ReportFile` and shows `form1` on the query `tsql`. A failure is
/// passed over where it happens: a report that cannot be opened gives an empty window and no
/// message.
void open_preview(AppState& app, std::string_view report_file, std::string_view tsql);

}  // namespace tela
