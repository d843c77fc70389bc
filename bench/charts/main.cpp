// How long the charts' statements take on a large catalogue, as their screens write them, rows read
// to the last.
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

// Each over the longest period that its screen lets through.
std::vector<Timed> charts() {
  const Period thirteen_months{"01/Dec/2023", "31/Dec/2024"};
  const Period ten_years{"01/Jan/2015", "31/Dec/2024"};
  const auto of = [&](const PeriodChart& chart) {
    return std::vector{PeriodChartScreen::sql(chart, thirteen_months)};
  };
  return {
      {"by month", {"delete from BarChartYear", frmBarChart::staging_sql(thirteen_months)}},
      {"by day", {PeriodChartScreen::sql(frmBarChartDay(), {"30/Nov/2024", "31/Dec/2024"})}},
      {"by counter", of(frmBarChartCounter())},
      {"by staff", of(frmBarChartUser())},
      {"by category", of(frmBarChartCatagory())},
      {"rates of an item",
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
