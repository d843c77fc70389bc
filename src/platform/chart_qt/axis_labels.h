// The labels of the rows below a chart: level where they fit, else in two lines, else upwards, and
// only every second or third one where even that is too close.
#pragma once

#include <QFont>
#include <QPainter>
#include <QStringList>

#include "platform/chart_qt/plot_frame.h"

namespace tela {

class AxisLabels {
 public:
  /// Plans the labels for rows that are `pitch` pixels apart. A label that would be longer than
  /// `longest` pixels upwards is cut short with an ellipsis.
  AxisLabels(const QStringList& labels, const QFont& font, double pitch, double longest);

  /// How much they take below the plot.
  double height() const { return height_; }
  void paint(QPainter& painter, const PlotFrame& frame) const;

 private:
  QFont font_;
  QStringList labels_;  // with a line break where there are two lines
  bool upwards_ = false;
  int every_ = 1;
  double height_ = 0;
};

}  // namespace tela
