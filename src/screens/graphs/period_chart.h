// The charts of a period's sales, by day, category, counter and staff: each a query and a series.
#pragma once

#include "screens/graphs/chart_screen.h"

namespace tela {

struct PeriodChart {
  std::string screen;
  std::string caption;
  Refusal limit;  ///< of the period
  // The statement: its start, the first day, its middle, the last day, its end.
  std::string start;
  std::string middle;
  std::string end;
  ChartSeries series;
};

class PeriodChartScreen : public ChartScreen {
 public:
  static std::string sql(const PeriodChart& chart, const Period& period);

  PeriodChartScreen(AppState& app, PeriodChart definition);

 private:
  void view() override;

  PeriodChart definition_;
};

// The screens.

PeriodChart frmBarChartDay();
PeriodChart frmBarChartCatagory();
PeriodChart frmBarChartCounter();
PeriodChart frmBarChartUser();

}  // namespace tela
