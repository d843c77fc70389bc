#include "platform/chart_qt/axis_labels.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace tela {

namespace {

constexpr double kBelowAxis = 6;  // pixels between the axis and its labels
constexpr double kBetween = 8;    // between two level labels

// The label in the two lines that are nearest to each other in length; itself if it is one word.
QString in_two_lines(const QString& label) {
  QString best = label;
  qsizetype best_line = label.size();
  for (qsizetype blank = label.indexOf(' '); blank >= 0; blank = label.indexOf(' ', blank + 1)) {
    const qsizetype line = std::max(blank, label.size() - blank - 1);
    if (line >= best_line) continue;
    best_line = line;
    best = label;
    best[blank] = '\n';
  }
  return best;
}

double widest_line(const QStringList& labels, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const QString& label : labels)
    for (const QString& line : label.split('\n'))
      widest = std::max(widest, metrics.horizontalAdvance(line));
  return widest;
}

}  // namespace

AxisLabels::AxisLabels(const QStringList& labels, const QFont& font, double pitch, double longest)
    : font_(font), labels_(labels) {
  const QFontMetricsF metrics(font_);
  if (widest_line(labels_, metrics) + kBetween <= pitch) {
    height_ = kBelowAxis + metrics.height();
    return;
  }
  for (QString& label : labels_) label = in_two_lines(label);
  if (widest_line(labels_, metrics) + kBetween <= pitch) {
    height_ = kBelowAxis + 2 * metrics.lineSpacing();
    return;
  }
  upwards_ = true;
  every_ = std::max(1, static_cast<int>(std::ceil(metrics.height() / pitch)));
  labels_ = labels;
  for (QString& label : labels_) label = metrics.elidedText(label, Qt::ElideRight, longest);
  height_ = kBelowAxis + widest_line(labels_, metrics);
}

void AxisLabels::paint(QPainter& painter, const PlotFrame& frame) const {
  const QFontMetricsF metrics(font_);
  const double top = frame.front.bottom() + kBelowAxis;
  painter.setFont(font_);
  for (int row = 0; row < labels_.size(); row += every_) {
    const double x = frame.x(row);
    if (!upwards_) {
      const QRectF place(x - frame.pitch() / 2, top, frame.pitch(), height_ - kBelowAxis);
      painter.drawText(place, Qt::AlignHCenter | Qt::AlignTop, labels_[row]);
      continue;
    }
    painter.save();
    painter.translate(x, top);
    painter.rotate(-90);
    const double length = height_ - kBelowAxis;
    painter.drawText(QRectF(-length, -metrics.height() / 2, length, metrics.height()),
                     Qt::AlignRight | Qt::AlignVCenter, labels_[row]);
    painter.restore();
  }
}

}  // namespace tela
