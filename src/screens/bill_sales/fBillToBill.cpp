// The bill to bill report: the bills of a range of bill numbers, whatever their dates and counters.
#include "screens/bill_sales/bills_between.h"
#include "shell/sql_value.h"

namespace tela {

BillList fBillToBill() {
  return {
      .screen = "fBillToBill",
      .caption = "Bill To Bill Sales",
      .inputs = tab_order(bills_between::limit("Text1", "BILL NO : FROM"),
                          bills_between::limit("Text2", "TO")),
      .walk = {"Text1", "Text2", "cmdView"},
      .bounded = true,
      .orders = {{"cmdView", "&View", " order by billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdClose", "&Close"),
                           button("cmdprint", "&Preview")),
      .refusals = bills_between::refusals("Please Enter The Bill No.",
                                          "The Start Bill No is Greater Than The End Bill No"),
      .select = bills_between::select(),
      .condition =
          [](const BillInputs& inputs) {
            return "billno>=" + sql_number(inputs.first) +
                   "  and billno<=" + sql_number(inputs.last);
          },
      .failure = "Please Select The Valied Records",
      .count_label = false,
      .range = BillRange::none,
      .boxes = bills_between::boxes(),
      .counted_by = 0,
      .preview = bills_between::preview(),
  };
}

}  // namespace tela
