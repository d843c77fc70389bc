// The thirty categories of which most was sold, by quantity.
#include "screens/graphs/period_chart.h"
#include "screens/graphs/period_limits.h"

namespace tela {

PeriodChart frmBarChartCatagory() {
  return {
      .screen = "frmBarChartCatagory",
      .caption = "GRAPH - CATAGORY WISE",
      .limit = longer_than_a_year(),
      .start =
          "Select  Top 30 sum(S.Qty),I.Catagory from Sales S join Items I on S.iCode=I.iCode "
          "where S.billdate>='",
      .middle = "' and S.billdate<='",
      .end = "' group by I.Catagory ORDER BY sum(S.Qty) Desc",
      .series = {"Catagory Sales For A Period", labelled(field(1)), number_field(0, "########0"),
                 true},
  };
}

}  // namespace tela
