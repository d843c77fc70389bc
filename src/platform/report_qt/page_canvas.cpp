// Painting the sheet that the viewer shows.
#include "platform/report_qt/page_canvas.h"

#include <QPainter>
#include <cmath>
#include <utility>

#include "platform/report/report_search.h"
#include "platform/report_qt/page_painter.h"

namespace tela {
namespace {
const QColor found_colour(0xff, 0xf2, 0xa8);
const QColor current_colour(0xff, 0xc1, 0x4d);
}  // namespace

void PageCanvas::show_page(std::shared_ptr<const ReportDocument> document, int number) {
  document_ = std::move(document);
  page_ = document_ ? document_->page(number) : ReportPage{};
  current_.reset();
  fit_size();
  update();
}

void PageCanvas::set_zoom(double percent) {
  zoom_ = percent;
  fit_size();
  update();
}

void PageCanvas::mark(std::string wanted, std::optional<std::size_t> current) {
  wanted_ = std::move(wanted);
  current_ = current;
  update();
}

QRect PageCanvas::text_rect(std::size_t text) const {
  const PageBox& box = page_.texts.at(text).box;
  const double scale = dots_per_mm();
  return QRectF(box.x * scale, box.y * scale, box.width * scale, box.height * scale)
      .toAlignedRect();
}

double PageCanvas::natural_width() const {
  return document_ ? document_->paper().width * dots_per_mm() * 100 / zoom_ : 0;
}

double PageCanvas::dots_per_mm() const {
  constexpr double mm_per_inch = 25.4;
  return logicalDpiX() / mm_per_inch * zoom_ / 100;
}

void PageCanvas::fit_size() {
  const PaperSize paper = document_ ? document_->paper() : PaperSize{0, 0};
  const double scale = dots_per_mm();
  setFixedSize(static_cast<int>(std::ceil(paper.width * scale)),
               static_cast<int>(std::ceil(paper.height * scale)));
}

void PageCanvas::paintEvent(QPaintEvent*) {
  if (!document_) return;
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  const auto marker = [this](std::size_t text) {
    if (!holds_text(page_.texts[text].text, wanted_)) return QColor();
    return text == current_ ? current_colour : found_colour;
  };
  PagePainter(painter, document_->font_family(), dots_per_mm()).paint(page_, marker);
}

}  // namespace tela
