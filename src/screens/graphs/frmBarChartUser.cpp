// The sales of each member of the staff.
#include "screens/graphs/period_chart.h"
#include "screens/graphs/period_limits.h"

namespace tela {

PeriodChart frmBarChartUser() {
  return {
      .screen = "frmBarChartUser",
      .caption = "GRAPH - STAFF  WISE",
      .limit = longer_than_a_year(),
      .start = "Select Staff,sum(netamount) from salesTemp where billdate>='",
      .middle = "' and billdate<='",
      .end = "' group by Staff order by Staff",
      .series = {"Staff Wise Sales for a Period", labelled(trimmed_field(0)),
                 number_field(1, "#########0")},
  };
}

}  // namespace tela
