#include "platform/chart_qt/chart_legend.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/chart/amount_text.h"
#include "platform/text/number_text.h"

namespace tela {

namespace {

constexpr double kLeading = 2;      // pixels between two entries
constexpr double kGap = 6;          // between colour, label and figure
constexpr double kLeastLabel = 50;  // what a label gets ahead of its figure
constexpr double kColumnGap = 10;   // behind a column

double entry_height(const QFont& font) {
  return QFontMetricsF(font).height() + kLeading;
}

double colour_size(const QFont& font) {
  return std::round(QFontMetricsF(font).ascent() * 0.8);
}

}  // namespace

ChartLegend::ChartLegend(const std::vector<DrawnRow>& rows, const ChartFonts& fonts, QSizeF room)
    : rows_(rows), font_(fonts.text) {
  const auto count = static_cast<double>(rows_.size());
  if (count * entry_height(font_) > room.height()) font_ = fonts.small;
  entries_in_column_ = std::max(1, static_cast<int>(room.height() / entry_height(font_)));
  columns_ = count > entries_in_column_ ? 2 : 1;
  for (const DrawnRow& row : rows_)
    if (row.exact.contains('.')) places_ = 2;
  const QFontMetricsF metrics(font_);
  double label = 0;
  double widest = 0;
  for (const DrawnRow& row : rows_) {
    label = std::max(label, metrics.horizontalAdvance(row.label));
    widest = std::max(widest, metrics.horizontalAdvance(figure(row)));
  }
  const double wanted = colour_size(font_) + kGap + label + 2 * kGap + widest + kColumnGap;
  column_width_ = std::min(wanted, room.width() / columns_);
}

QString ChartLegend::figure(const DrawnRow& row) const {
  return QString::fromStdString(grouped_amount(fixed_decimal(row.value, places_)));
}

void ChartLegend::paint(QPainter& painter, QPointF corner) const {
  const int count = static_cast<int>(rows_.size());
  const int places = entries_in_column_ * columns_;
  const double height = entry_height(font_);
  painter.setFont(font_);
  for (int entry = 0; entry < std::min(count, places); ++entry) {
    const int column = entry / entries_in_column_;
    const int line = entry % entries_in_column_;
    const QRectF place(corner.x() + column * column_width_, corner.y() + line * height,
                       column_width_ - kColumnGap, height - kLeading);
    if (count > places && entry == places - 1) {
      painter.setPen(kChartFaintInk);
      painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                       QString("and %1 more").arg(count - entry));
    } else {
      paint_entry(painter, entry, place);
    }
  }
}

void ChartLegend::paint_entry(QPainter& painter, int entry, const QRectF& place) const {
  const DrawnRow& row = rows_[static_cast<std::size_t>(entry)];
  const QFontMetricsF metrics(font_);
  const double size = colour_size(font_);
  painter.setPen(row_colour(entry).darker(130));
  painter.setBrush(row_colour(entry));
  painter.drawRect(QRectF(place.left() + 0.5, place.center().y() - size / 2, size, size));
  const double start = place.left() + size + kGap;
  const double whole = metrics.horizontalAdvance(row.label);
  double label = place.right() - metrics.horizontalAdvance(figure(row)) - kGap - start;
  painter.setPen(kChartInk);
  if (label < std::min(whole, kLeastLabel))
    label = place.right() - start;
  else
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, figure(row));
  painter.drawText(QRectF(start, place.top(), label, place.height()),
                   Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(row.label, Qt::ElideRight, label));
}

}  // namespace tela
