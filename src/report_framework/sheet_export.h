// The export of a screen's grids into a new sheet of its workbook. Database and grids are only
// read.
#pragma once

#include "platform/sheet/sheet_port.h"
#include "report_framework/sheet_layouts.h"
#include "shell/app_state.h"
#include "shell/form.h"

namespace tela {

/// The cells of the sheet that the layout gives of the form's grids. Throws std::logic_error if the
/// form lacks a grid that the layout names.
SheetBlock sheet_block(const SheetLayout& layout, const Form& form);

/// What the screen's Excel button does: asks, where the layout has a question; adds a sheet to the
/// workbook, tells the user and shows the workbook. Any failure on the way is told by the
/// workbook's own message alone and ends the export.
void export_sheet(AppState& app, const Form& form, const SheetLayout& layout);

}  // namespace tela
