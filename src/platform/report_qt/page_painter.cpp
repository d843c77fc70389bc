// Painting shades, rules and texts. The painter counts in hundredths of a millimetre, so that a
// text is measured alike on every device.
#include "platform/report_qt/page_painter.h"

#include <algorithm>

namespace tela {
namespace {

constexpr double units_per_mm = 100;
constexpr double mm_per_point = 25.4 / 72;
const QColor shade_colour(0xf0, 0xf2, 0xf5);
const QColor rule_colour(0x60, 0x68, 0x70);

QRectF in_units(const PageBox& box) {
  return {box.x * units_per_mm, box.y * units_per_mm, box.width * units_per_mm,
          box.height * units_per_mm};
}

double start_of(const QRectF& box, double width, TextAlign align) {
  switch (align) {
    case TextAlign::right:
      return box.right() - width;
    case TextAlign::centre:
      return box.center().x() - width / 2;
    case TextAlign::left:
      break;
  }
  return box.left();
}

}  // namespace

PagePainter::PagePainter(QPainter& painter, const std::string& font_family, double dots_per_mm)
    : painter_(painter), family_(QString::fromStdString(font_family)), dots_per_mm_(dots_per_mm) {}

void PagePainter::paint(const ReportPage& page, const Marker& marker) {
  painter_.save();
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter_.scale(dots_per_mm_ / units_per_mm, dots_per_mm_ / units_per_mm);
  for (const PageBox& shade : page.shades) painter_.fillRect(in_units(shade), shade_colour);
  for (const PageBox& rule : page.rules) painter_.fillRect(in_units(rule), rule_colour);
  painter_.setPen(Qt::black);
  for (std::size_t i = 0; i < page.texts.size(); ++i) {
    paint(page.texts[i], marker ? marker(i) : QColor());
  }
  painter_.restore();
}

const PagePainter::Face& PagePainter::face(const TextStyle& style) {
  const auto known = std::find_if(faces_.begin(), faces_.end(),
                                  [&](const Face& face) { return face.style == style; });
  if (known != faces_.end()) return *known;
  QFont font;
  font.setFamilies({family_, "Liberation Sans", "DejaVu Sans", "Arial"});
  font.setPixelSize(qRound(style.size * mm_per_point * units_per_mm));
  font.setBold(style.bold);
  font.setItalic(style.italic);
  font.setHintingPreference(QFont::PreferNoHinting);
  faces_.push_back({style, font, QFontMetricsF(font)});
  return faces_.back();
}

void PagePainter::paint(const PageText& text, const QColor& mark) {
  const Face& face = this->face(text.style);
  const QRectF box = in_units(text.box);
  QString shown = QString::fromStdString(text.text);
  double width = face.metrics.horizontalAdvance(shown);
  if (width > box.width() && !text.is_figure) {
    shown = face.metrics.elidedText(shown, Qt::ElideRight, box.width());
    width = face.metrics.horizontalAdvance(shown);
  }
  const double narrowing = std::min(1.0, box.width() / std::max(width, 1.0));
  const double baseline = box.center().y() + (face.metrics.ascent() - face.metrics.descent()) / 2;
  painter_.setFont(face.font);
  const QPointF start(start_of(box, width * narrowing, text.align), baseline);
  if (mark.isValid()) {
    painter_.fillRect(QRectF(start.x(), box.top(), width * narrowing, box.height()), mark);
  }
  if (narrowing == 1.0) {
    painter_.drawText(start, shown);
    return;
  }
  painter_.save();
  painter_.translate(start);
  painter_.scale(narrowing, 1);
  painter_.drawText(QPointF(0, 0), shown);
  painter_.restore();
}

}  // namespace tela
