// The figures at the points of a chart.
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <vector>

#include "platform/chart_qt/chart_rows.h"
#include "platform/chart_qt/plot_frame.h"

namespace tela {

/// Which of `places` can be shown so that none touches another. Those earlier in `order` come
/// first.
std::vector<bool> without_overlaps(const std::vector<QRectF>& places,
                                   const std::vector<std::size_t>& order);

class DataLabels {
 public:
  /// Plans the labels for rows that are `pitch` pixels apart, each `beyond` pixels from its point.
  /// Level ones that do not fit there are written shorter, and if that does not help, upwards.
  DataLabels(const std::vector<DrawnRow>& rows, const QFont& font, double pitch, double beyond,
             bool upwards);

  /// The room that a label needs beyond its point.
  double height() const;
  /// Paints each label beyond its row's point: above it, and below it where the value is negative.
  /// Where labels would touch, those of the larger values stay.
  void paint(QPainter& painter, const std::vector<QPointF>& points) const;

 private:
  QRectF place(std::size_t row, QPointF point) const;

  QFont font_;
  double beyond_;
  std::vector<double> values_;
  std::vector<QString> texts_;
  bool upwards_;
};

}  // namespace tela
