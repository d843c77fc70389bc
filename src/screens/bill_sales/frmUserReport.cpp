// The user-wise report: the bills that one staff member made in a period.
#include "screens/bill_sales/bill_list.h"
#include "shell/sql_value.h"

namespace tela {

BillList frmUserReport() {
  return {
      .screen = "frmUserReport",
      .caption = "USER WISE REPORT",
      .inputs = tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                          combo("Combo1", "USER")),
      .walk = {"DTP1", "DTP2", "Combo1", "cmdView"},
      .list_sql = "Select Staff from salesTemp group by Staff order by Staff",
      .orders = {{"cmdView", "&View", " order by billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdClose", "Close"),
                           button("cmdPreview", "Previe&w")),
      .refusals = {blank("Combo1", "Please Select The User Name")},
      .long_run = true,
      .select = split_select(),
      .condition =
          [](const BillInputs& inputs) {
            return in_period(inputs.period) + " AND Staff=" + sql_text(inputs.filter);
          },
      .range = BillRange::none,
      .preview = sales_print("cmdPreview"),
  };
}

}  // namespace tela
