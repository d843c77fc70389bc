#include "platform/chart_qt/pie.h"

#include <QFontMetricsF>
#include <QPieSeries>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "platform/chart_qt/chart_look.h"
#include "platform/text/number_text.h"

namespace tela {

namespace {

constexpr double kWholeTurn = 360;
constexpr double kLeader = 26;  // pixels from the pie to its labels
constexpr double kGap = 4;
constexpr double kAnyRoom = 1e6;
constexpr int kAtLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int kAtRight = Qt::AlignRight | Qt::AlignVCenter;

}  // namespace

std::vector<double> spread(std::vector<double> wanted, double gap, double low, double high) {
  double least = low;
  for (double& height : wanted) {
    height = std::max(height, least);
    least = height + gap;
  }
  double most = high;
  for (auto height = wanted.rbegin(); height != wanted.rend(); ++height) {
    *height = std::min(*height, most);
    most = *height - gap;
  }
  return wanted;
}

Pie::Pie(const std::vector<DrawnRow>& rows, const QFont& font, const QRectF& area, bool labelled)
    : rows_(rows), font_(font), area_(area), labelled_(labelled) {
  double total = 0;
  for (const DrawnRow& row : rows_) total += std::max(row.value, 0.0);
  double start = 0;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].value <= 0) continue;
    const double span = kWholeTurn * rows_[row].value / total;
    slices_.push_back({row, start, span});
    start += span;
  }
  double widest = 0;
  if (labelled_)
    for (const Slice& slice : slices_)
      widest = std::max(widest, QFontMetricsF(font_).horizontalAdvance(label(slice, kAnyRoom)));
  const double beside = labelled_ ? std::min(widest + kLeader, area.width() * 0.32) : 0;
  radius_ = std::max(20.0, std::min(area.width() / 2 - beside, area.height() / 2 - kLeader / 2));
}

int Pie::left_out() const {
  return static_cast<int>(rows_.size() - slices_.size());
}

void Pie::add_to(QChart& chart) const {
  auto* series = new QPieSeries;
  for (const Slice& slice : slices_) {
    const DrawnRow& row = rows_[slice.row];
    QPieSlice* part = series->append(row.label, row.value);
    part->setColor(row_colour(static_cast<int>(slice.row)));
    part->setPen(slices_.size() > 1 ? QPen(Qt::white, 1.5) : QPen(Qt::NoPen));
  }
  const QPointF corner = area_.center() - QPointF(radius_, radius_);
  chart.setPlotArea(QRectF(corner, QSizeF(2 * radius_, 2 * radius_)));
  series->setPieSize(1);
  chart.addSeries(series);
}

QString Pie::label(const Slice& slice, double room) const {
  constexpr double kWholeFrom = 10;  // per cent
  const QFontMetricsF metrics(font_);
  const double part = slice.span / kWholeTurn * 100;
  const QString share =
      "  " + QString::fromStdString(fixed_decimal(part, part < kWholeFrom ? 1 : 0)) + "%";
  const double for_name = room - metrics.horizontalAdvance(share);
  return metrics.elidedText(rows_[slice.row].label, Qt::ElideRight, for_name) + share;
}

QPointF Pie::direction(const Slice& slice) const {
  const double angle = qDegreesToRadians(slice.middle());
  return {std::sin(angle), -std::cos(angle)};
}

void Pie::paint_labels(QPainter& painter) const {
  if (!labelled_) return;
  painter.setFont(font_);
  paint_side(painter, false);
  paint_side(painter, true);
}

void Pie::paint_side(QPainter& painter, bool right) const {
  const QFontMetricsF metrics(font_);
  std::vector<Slice> side;
  for (const Slice& slice : slices_)
    if ((direction(slice).x() >= 0) == right) side.push_back(slice);
  // The largest slices have their labels where there is no room for all.
  const auto room = static_cast<std::size_t>(std::max(0.0, area_.height() / metrics.height()));
  std::stable_sort(side.begin(), side.end(),
                   [](const Slice& a, const Slice& b) { return a.span > b.span; });
  if (side.size() > room) side.resize(room);
  std::sort(side.begin(), side.end(),
            [this](const Slice& a, const Slice& b) { return direction(a).y() < direction(b).y(); });

  std::vector<double> heights;
  heights.reserve(side.size());
  for (const Slice& slice : side)
    heights.push_back(area_.center().y() + direction(slice).y() * (radius_ + kLeader / 2));
  heights = spread(heights, metrics.height(), area_.top() + metrics.height() / 2,
                   area_.bottom() - metrics.height() / 2);
  const double sign = right ? 1 : -1;
  const double text_start = area_.center().x() + sign * (radius_ + kLeader);
  const double width = right ? area_.right() - text_start : text_start - area_.left();
  for (std::size_t i = 0; i < side.size(); ++i) {
    const QPointF rim = area_.center() + direction(side[i]) * radius_;
    const QPointF bend = area_.center() + direction(side[i]) * (radius_ + kLeader / 3);
    painter.setPen(QPen(kChartFaintInk, 1));
    painter.drawPolyline(QPolygonF({rim, bend, {text_start - sign * kGap, heights[i]}}));
    painter.setPen(kChartInk);
    const QRectF place(right ? text_start : area_.left(), heights[i] - metrics.height() / 2, width,
                       metrics.height());
    painter.drawText(place, right ? kAtLeft : kAtRight, label(side[i], width));
  }
}

std::optional<std::size_t> Pie::row_at(QPointF place) const {
  const QPointF from_middle = place - area_.center();
  if (std::hypot(from_middle.x(), from_middle.y()) > radius_) return std::nullopt;
  double angle = qRadiansToDegrees(std::atan2(from_middle.x(), -from_middle.y()));
  if (angle < 0) angle += kWholeTurn;
  for (const Slice& slice : slices_)
    if (angle <= slice.start + slice.span) return slice.row;
  return std::nullopt;
}

}  // namespace tela
