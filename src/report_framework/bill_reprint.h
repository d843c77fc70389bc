// The reprint of the bill on show: what the bill view's boxes and grid hold, laid out by the
// printer settings and written to the printer's port. The database is not touched.
#pragma once

#include "report_framework/bill_printing.h"
#include "shell/app_state.h"
#include "shell/form.h"

namespace tela {

/// What the bill view shows, as it is printed. `form` has the boxes and the seven-column grid of
/// that screen.
PrintedBill bill_on_show(const Form& form);

/// Prints the bill on show in the layout that `PrintNo` chooses; any number but 1 and 2 prints
/// nothing. Throws PrinterError when the port cannot be opened or written.
void reprint_bill(AppState& app, const Form& form);

}  // namespace tela
