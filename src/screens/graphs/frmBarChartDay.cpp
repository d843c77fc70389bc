// The sales of each day of a month. A day without bills has no row.
#include "screens/graphs/period_chart.h"
#include "screens/graphs/period_limits.h"

namespace tela {

PeriodChart frmBarChartDay() {
  return {
      .screen = "frmBarChartDay",
      .caption = "GRAPH FOR A MONTH",
      .limit = longer_than_a_month(),
      .start = "Select billdate,sum(netamount) from salesTemp where billdate>='",
      .middle = "' and billdate<='",
      .end = "' group by BillDate order by billdate",
      .series = {"Sales for a Period", labelled(date_field(0, "DD/MM/YYYY")), field(1), true},
  };
}

}  // namespace tela
