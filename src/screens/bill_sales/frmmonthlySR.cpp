// The monthly sales report: the bills of a period, with three orderings and a guard against very
// long lists.
#include "screens/bill_sales/bill_list.h"

namespace tela {

BillList frmmonthlySR() {
  return {
      .screen = "frmmonthlySR",
      .caption = "   MONTHLY SALES REPORT",
      .inputs = tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                          combo("Combo1", "COUNTER")),
      .walk = {"DTP1", "DTP2", "Combo1", "cmdView"},
      .counters = 6,
      .orders = {{"cmdView", "&View", " order by billno"},
                 {"cmdAss", "Ascending Order", " order by Total Asc"},
                 {"CmdDesc", "Descending Order", " order by Total Desc"}},
      .buttons = tab_order(button("cmdPreview", "Previe&w"), button("cmdRefresh", "&Refresh"),
                           button("cmdClose", "&Close")),
      .refusals = {blank("Combo1", "Please Select The Counter No.")},
      .empties_first = true,
      .select = split_select(),
      .condition =
          [](const BillInputs& inputs) { return in_period(inputs.period) + of_counter(inputs); },
      .most_rows = 10000,
      .range = BillRange::of_query,
      // The list by bill number has always had two blanks here, the other two orders one.
      .range_condition =
          [](const BillInputs& inputs, std::size_t order) {
            const bool two_blanks = order == 0 && inputs.counter;
            return in_period(inputs.period) + (two_blanks ? " " : "") + of_counter(inputs);
          },
      .mobile_pay_label = "MOBILE PAY",
      .preview = sales_print("cmdPreview"),
  };
}

}  // namespace tela
