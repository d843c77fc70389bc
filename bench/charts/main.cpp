// How long the charts' statements take over all that a catalogue holds, as their screens write
// them, rows read to the last.
//
//   charts_bench CATALOGUE.db
//
// CATALOGUE holds ten years that end on 31/12/2024. Its BarChartYear is written to.
#include <chrono>
#include <cstdio>
#include <limits>
#include <memory>

#include "platform/embedded/embedded_catalogue.h"
#include "screens/graphs/frmBarChart.h"
#include "screens/graphs/frmBarChartCost.h"
#include "screens/graphs/period_chart.h"

namespace tela::bench {
namespace {

constexpr double kMost = 2;  // seconds

struct Timed {
  const char* chart;
  std::vector<std::string> statements;
};

std::vector<Timed> charts() {
  const Period ten_years{"01/Jan/2015", "31/Dec/2024"};
  const Period year{"01/Jan/2024", "31/Dec/2024"};
  const auto by_period = [](const PeriodChart& chart, const Period& period) {
    return std::vector{PeriodChartScreen::sql(chart, period)};
  };
  const auto by_month = [](const Period& period) {
    return std::vector<std::string>{"delete from BarChartYear", frmBarChart::staging_sql(period)};
  };
  return {
      {"months of a year", by_month(year)},
      {"months, ten years", by_month(ten_years)},
      {"days of a month", by_period(frmBarChartDay(), {"01/Dec/2024", "31/Dec/2024"})},
      {"days, ten years", by_period(frmBarChartDay(), ten_years)},
      {"counters, ten years", by_period(frmBarChartCounter(), ten_years)},
      {"staff, ten years", by_period(frmBarChartUser(), ten_years)},
      {"categories of a year", by_period(frmBarChartCatagory(), year)},
      {"categories, ten years", by_period(frmBarChartCatagory(), ten_years)},
      {"rates, ten years",
       {"Create Table #CostCompare (SaleRate float)", frmBarChartCost::rates_sql(ten_years, "1101"),
        "Drop Table #CostCompare"}},
  };
}

double best_of_three(Connection& catalogue, const Timed& timed) {
  double best = std::numeric_limits<double>::infinity();
  for (int run = 0; run < 3; ++run) {
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& statement : timed.statements) catalogue.execute(statement);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    best = std::min(best, took.count());
  }
  return best;
}

void time_charts(const std::string& file) {
  const auto catalogue = make_embedded_connection(file);
  catalogue->open("Initial Catalog=TelaData");
  for (const Timed& timed : charts()) {
    const double seconds = best_of_three(*catalogue, timed);
    std::printf("%-22s %10.2f ms   at most %.0f ms %s\n", timed.chart, seconds * 1000, kMost * 1000,
                seconds <= kMost ? "" : "  MISSED");
  }
}

}  // namespace
}  // namespace tela::bench

int main(int count, char** words) {
  if (count != 2) {
    std::fputs("usage: charts_bench CATALOGUE.db\n", stderr);
    return 2;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  tela::bench::time_charts(words[1]);
}
