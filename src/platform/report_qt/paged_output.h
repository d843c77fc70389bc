// Reports on paper and in PDF files: the same painting on both.
#pragma once

#include <QPagedPaintDevice>
#include <string>

#include "platform/report/report_engine.h"

namespace tela {

/// Gives `device` the document's paper without margins of its own; the layout has its own.
void set_paper(QPagedPaintDevice& device, const ReportDocument& document);

/// Paints the pages `first` to `last` (from 1), each on a sheet of its own. Throws ReportError if
/// the device cannot be painted on.
void paint_pages(QPagedPaintDevice& device, const ReportDocument& document, int first, int last);

/// A PdfWriter. The file appears whole or not at all. Needs a QGuiApplication for the fonts.
void write_pdf(const ReportDocument& document, const std::string& path);

}  // namespace tela
