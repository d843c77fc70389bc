#include "platform/chart_qt/chart_rows.h"

#include <cmath>

#include "platform/chart/amount_text.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"

namespace tela {

std::vector<DrawnRow> drawn_rows(const Chart& chart) {
  std::vector<DrawnRow> rows;
  for (const ChartRow& row : chart.rows)
    rows.push_back({trimmed(row.label).empty() ? "(blank)" : QString::fromStdString(row.label),
                    Val(row.value), QString::fromStdString(grouped_amount(row.value))});
  return rows;
}

QString data_label(double value) {
  constexpr double kWholeFrom = 1000;
  return QString::fromStdString(amount_in({}, value, std::abs(value) < kWholeFrom ? 2 : 0));
}

}  // namespace tela
