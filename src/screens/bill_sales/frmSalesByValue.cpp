// The sales by value: the bills of a period that came to an amount between two limits.
#include "screens/bill_sales/bills_between.h"
#include "shell/sql_value.h"

namespace tela {

BillList frmSalesByValue() {
  return {
      .screen = "frmSalesByValue",
      .caption = "SALES REPORT BY VALUE",
      .inputs =
          tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                    bills_between::limit("Text1", "FROM"), bills_between::limit("Text2", "TO")),
      .walk = {"DTP1", "DTP2", "Text1", "Text2", "cmdView"},
      .bounded = true,
      .orders = {{"cmdView", "&View", " order by billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdprint", "&Preview")),
      .refusals = bills_between::refusals("Please Enter The Bill Value",
                                          "The Start Value is Greater Than The End Value"),
      .select = bills_between::select(),
      .condition =
          [](const BillInputs& inputs) {
            return "billdate>=" + sql_text(inputs.period.from) +
                   " and BillDate<=" + sql_text(inputs.period.to) +
                   " and Total>=" + sql_number(inputs.first) +
                   "  and Total<=" + sql_number(inputs.last);
          },
      .boxes = bills_between::boxes(),
      .counted_by = 0,
      .preview = bills_between::preview(),
  };
}

}  // namespace tela
