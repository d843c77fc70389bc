// A chart's rows as they are drawn.
#pragma once

#include <QString>
#include <vector>

#include "platform/chart/chart.h"

namespace tela {

struct DrawnRow {
  QString label;
  double value = 0;
  QString exact;  ///< the value as the row holds it, with its digits grouped
};

std::vector<DrawnRow> drawn_rows(const Chart& chart);

/// The value for a data label: whole from a thousand on, exact below.
QString data_label(double value);

}  // namespace tela
