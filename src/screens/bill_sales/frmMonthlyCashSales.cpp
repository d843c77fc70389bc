// The cash sales of a period: the bills that were paid at the till.
#include "screens/bill_sales/bill_list.h"
#include "shell/sql_value.h"

namespace tela {

BillList frmMonthlyCashSales() {
  return {
      .screen = "frmMonthlyCashSales",
      .caption = "CASH SALES - FOR A PERIOD",
      .inputs = tab_order(date_picker("DTPicker1", " FROM"), date_picker("DTPicker2", "TO"),
                          combo("Combo1", "SELECT THE COUNTER")),
      .walk = {"DTPicker1", "DTPicker2", "Combo1", "cmdView"},
      .counters = 6,
      .orders = {{"cmdView", "&View", " order by billdate,billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w")),
      .refusals = {blank("Combo1", "Please Select the Counter")},
      .select = plain_select(kDerivedCash),
      .condition =
          [](const BillInputs& inputs) {
            return "billdate>=" + sql_text(inputs.period.from) +
                   " AND billdate<=" + sql_text(inputs.period.to) + kPaidAtTheTill +
                   of_counter(inputs);
          },
      .range = BillRange::of_query,
      .preview =
          {
              .refusals = {reversed("DTPicker1", "DTPicker2",
                                    "The Start Date Is Greater Than The End Date")},
              .clear = "Delete from MonthCashSales",
              .insert = "Insert into MonthCashSales values(",
              .values = [](const BillInputs& inputs,
                           const GridRow& row) -> std::vector<std::string> {
                return {sql_text(inputs.period.from), sql_text(inputs.period.to),
                        sql_text(inputs.filter), cash_values(row)};
              },
              .report_file = "MonthCashSalesP.rpt",
              .report_query = "SELECT * FROM MonthCashSales",
          },
  };
}

}  // namespace tela
