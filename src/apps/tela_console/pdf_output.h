// The console's way to a PDF: the desktop's painter, without a desktop.
#pragma once

#include "platform/report/report_engine.h"

namespace tela {

/// Writes reports as PDF files; empty in a build without the desktop's painter. The painter's
/// application starts with the first report, so that a script without one does not wait for it.
PdfWriter make_pdf_writer();

}  // namespace tela
