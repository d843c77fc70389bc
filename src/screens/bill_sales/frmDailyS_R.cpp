// The daily sales report: the bills of one day, for one till counter or for all, with the way each
// was paid.
#include "screens/bill_sales/bill_list.h"
#include "shell/sql_value.h"

namespace tela {

BillList frmDailyS_R() {
  BillList list{
      .screen = "frmDailyS_R",
      .caption = " DAILY SALES REPORT",
      .inputs = tab_order(date_picker("DTPicker1", "SELECT THE DATE"),
                          combo("Combo1", "SELECT THE COUNTER")),
      .walk = {"DTPicker1", "Combo1"},
      .enter_lists = "Combo1",
      .counters = 5,
      .orders = {{"cmdView", "&View", " order by billdate,billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w")),
      .refusals = {blank("Combo1", "Please Select The Counter No.")},
      .select = split_select(),
      .condition =
          [](const BillInputs& inputs) {
            return "billdate=" + sql_text(inputs.period.from) +
                   (inputs.counter ? " " + of_counter(inputs) : "");
          },
      .preview = sales_print("cmdprint"),
  };
  list.preview.question = "DO YOU WANT TO PREVIEW THE RECORD- (OK To Print, Cancel To Exit ) ";
  return list;
}

}  // namespace tela
