// Painting whole reports, page after page.
#include "platform/report_qt/paged_output.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>

#include "platform/report_qt/page_painter.h"

namespace tela {

void set_paper(QPagedPaintDevice& device, const ReportDocument& document) {
  const PaperSize paper = document.paper();
  const QSizeF upright(std::min(paper.width, paper.height), std::max(paper.width, paper.height));
  const auto turned = paper.width > paper.height ? QPageLayout::Landscape : QPageLayout::Portrait;
  device.setPageLayout({QPageSize(upright, QPageSize::Millimeter), turned, QMarginsF()});
}

void paint_pages(QPagedPaintDevice& device, const ReportDocument& document, int first, int last) {
  constexpr double mm_per_inch = 25.4;
  QPainter painter;
  if (!painter.begin(&device)) throw ReportError("the report cannot be printed there");
  PagePainter pages(painter, document.font_family(), device.logicalDpiX() / mm_per_inch);
  for (int number = first; number <= last; ++number) {
    if (number > first && !device.newPage()) throw ReportError("the printer takes no further page");
    pages.paint(document.page(number));
  }
  if (!painter.end()) throw ReportError("the printer did not take the whole report");
}

void write_pdf(const ReportDocument& document, const std::string& path) {
  QSaveFile file(QString::fromStdString(path));
  const auto refuse = [&] {
    throw ReportError("cannot write " + path + ": " + file.errorString().toStdString());
  };
  if (!file.open(QIODevice::WriteOnly)) refuse();
  {
    constexpr int dots_per_inch = 600;
    QPdfWriter writer(&file);
    writer.setResolution(dots_per_inch);
    writer.setTitle(QFileInfo(file.fileName()).completeBaseName());
    set_paper(writer, document);
    paint_pages(writer, document, 1, document.page_count());
  }
  if (!file.commit()) refuse();
}

}  // namespace tela
