// The sales of each counter that has bills in the period.
#include "screens/graphs/period_chart.h"
#include "screens/graphs/period_limits.h"

namespace tela {

PeriodChart frmBarChartCounter() {
  return {
      .screen = "frmBarChartCounter",
      .caption = "GRAPH - COUNTER WISE",
      .limit = longer_than_a_year(),
      .start = "Select Counter,sum(netamount) from salesTemp where billdate>='",
      .middle = "' and billdate<='",
      .end = "' group by Counter order by Counter",
      .series = {"Counter Wise Sales for a Period",
                 [counter = labelled(field(0))](const Recordset& rs) {
                   return "Counter _ " + counter(rs);
                 },
                 number_field(1, "#########0")},
  };
}

}  // namespace tela
