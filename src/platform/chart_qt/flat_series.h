// The flat kinds of chart with axes, as series of Qt Charts.
#pragma once

#include <QChart>
#include <vector>

#include "platform/chart/chart.h"

namespace tela {

/// Adds the series that the type is made of to a chart that has its plot area and its two
/// axes: row numbers from 0, and values.
void add_flat_series(QChart& chart, ChartType type, const std::vector<double>& values);

}  // namespace tela
