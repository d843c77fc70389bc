#include "platform/chart_qt/data_labels.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/chart/amount_text.h"
#include "platform/chart_qt/chart_look.h"

namespace tela {

namespace {

constexpr double kBetween = 4;  // pixels between two labels side by side

double widest(const std::vector<QString>& texts, const QFont& font) {
  const QFontMetricsF metrics(font);
  double width = 0;
  for (const QString& text : texts) width = std::max(width, metrics.horizontalAdvance(text));
  return width;
}

// A text on a light edge of its own, so that lines behind it do not cut through it.
void paint_text(QPainter& painter, const QRectF& place, bool upwards, const QString& text) {
  const QFontMetricsF metrics(painter.font());
  QPainterPath letters;
  letters.addText(-metrics.horizontalAdvance(text) / 2, (metrics.ascent() - metrics.descent()) / 2,
                  painter.font(), text);
  painter.save();
  painter.translate(place.center());
  if (upwards) painter.rotate(-90);
  painter.strokePath(
      letters, QPen(QColor(255, 255, 255, 210), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(letters, kChartInk);
  painter.restore();
}

}  // namespace

std::vector<bool> without_overlaps(const std::vector<QRectF>& places,
                                   const std::vector<std::size_t>& order) {
  std::vector<bool> shown(places.size(), false);
  for (const std::size_t next : order) {
    bool free = true;
    for (std::size_t other = 0; free && other < places.size(); ++other)
      free = !shown[other] || !places[other].intersects(places[next]);
    shown[next] = free;
  }
  return shown;
}

DataLabels::DataLabels(const std::vector<DrawnRow>& rows, const QFont& font, double pitch,
                       double beyond, bool upwards)
    : font_(font), beyond_(beyond), upwards_(upwards) {
  for (const DrawnRow& row : rows) {
    values_.push_back(row.value);
    texts_.push_back(data_label(row.value));
  }
  if (upwards_ || widest(texts_, font_) + kBetween <= pitch) return;
  std::vector<QString> shorter;
  for (const double value : values_) shorter.push_back(QString::fromStdString(short_amount(value)));
  if (widest(shorter, font_) + kBetween <= pitch)
    texts_ = shorter;
  else
    upwards_ = true;
}

double DataLabels::height() const {
  const double text = upwards_ ? widest(texts_, font_) : QFontMetricsF(font_).height();
  return text + 2 * beyond_;
}

QRectF DataLabels::place(std::size_t row, QPointF point) const {
  const QFontMetricsF metrics(font_);
  QSizeF size(metrics.horizontalAdvance(texts_[row]), metrics.height());
  if (upwards_) size.transpose();
  const double top = values_[row] < 0 ? point.y() + beyond_ : point.y() - beyond_ - size.height();
  return {QPointF(point.x() - size.width() / 2, top), size};
}

void DataLabels::paint(QPainter& painter, const std::vector<QPointF>& points) const {
  std::vector<QRectF> places;
  for (std::size_t row = 0; row < texts_.size(); ++row) places.push_back(place(row, points[row]));
  std::vector<std::size_t> order(texts_.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
    return std::abs(values_[a]) > std::abs(values_[b]);
  });
  const std::vector<bool> shown = without_overlaps(places, order);
  painter.setFont(font_);
  for (std::size_t row = 0; row < texts_.size(); ++row)
    if (shown[row]) paint_text(painter, places[row], upwards_, texts_[row]);
}

}  // namespace tela
