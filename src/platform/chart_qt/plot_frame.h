// Where the values of a chart with axes lie on the picture.
#pragma once

#include <QPointF>
#include <QRectF>

#include "platform/chart/value_scale.h"

namespace tela {

struct PlotFrame {
  QRectF front;   ///< the plane of the values; of a deep chart the one in front
  QPointF depth;  ///< from the front to the back: to the right and up; nothing in a flat chart
  ValueScale scale;
  int rows = 1;

  /// The width that each row has.
  double pitch() const { return front.width() / rows; }
  /// The middle of a row, by its number from 0; a half more is the edge to the next one.
  double x(double row) const { return front.left() + (row + 0.5) * pitch(); }
  double y(double value) const {
    return front.bottom() - (value - scale.low) / (scale.high - scale.low) * front.height();
  }
  QPointF at(double row, double value) const { return {x(row), y(value)}; }
};

}  // namespace tela
