#include "screens/graphs/period_chart.h"

#include <utility>

namespace tela {

std::string PeriodChartScreen::sql(const PeriodChart& chart, const Period& period) {
  return chart.start + period.from + chart.middle + period.to + chart.end;
}

PeriodChartScreen::PeriodChartScreen(AppState& app, PeriodChart definition)
    : ChartScreen(app, definition.screen, definition.caption), definition_(std::move(definition)) {}

void PeriodChartScreen::view() {
  const Period period = take_period();
  if (refused(definition_.limit)) return;
  draw(sql(definition_, period), definition_.series);
}

}  // namespace tela
