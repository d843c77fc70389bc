// The daily cash sales: the bills of one day that were paid at the till.
#include "screens/bill_sales/bill_list.h"
#include "shell/sql_value.h"

namespace tela {

BillList frmDailyCashsales() {
  return {
      .screen = "frmDailyCashsales",
      .caption = " DAILY CASH SALES",
      .inputs = tab_order(date_picker("DTPicker1", " DATE"), combo("Combo1", "SELECT THE COUNTER")),
      .walk = {"DTPicker1", "Combo1", "cmdView"},
      .counters = 5,
      .orders = {{"cmdView", "&View", " order by billdate,billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w")),
      .refusals = {blank("Combo1", "Please Select The Counter No.")},
      .select = plain_select(kDerivedCash),
      .condition =
          [](const BillInputs& inputs) {
            return "billdate=" + sql_text(inputs.period.from) + (inputs.counter ? " " : "") +
                   kPaidAtTheTill + of_counter(inputs);
          },
      .preview =
          {
              .clear = "Delete from fDailyCashS",
              .insert = "Insert into fDailyCashS values(",
              .values = [](const BillInputs& inputs,
                           const GridRow& row) -> std::vector<std::string> {
                return {sql_text(inputs.period.from), sql_text(inputs.filter), cash_values(row)};
              },
              .report_file = "fDailyCashSPri.rpt",
              .report_query = "SELECT * FROM fDailyCashS",
          },
  };
}

}  // namespace tela
