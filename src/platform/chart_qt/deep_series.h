// The three-dimensional kinds of chart: walls with the marks of the scale, and solids before them.
// Qt Charts has no depth, so their faces are painted here.
#pragma once

#include <QPainter>
#include <vector>

#include "platform/chart/chart.h"
#include "platform/chart_qt/plot_frame.h"

namespace tela {

bool is_deep(ChartType type);

/// Paints the walls and the values of a deep type.
void paint_deep(QPainter& painter, ChartType type, const std::vector<double>& values,
                const PlotFrame& frame);

}  // namespace tela
