// The credit sales of a period: the bills on credit and the home deliveries.
#include "screens/bill_sales/bill_list.h"

namespace tela {

BillList frmMonthlyCreditSales() {
  BillList list{
      .screen = "frmMonthlyCreditSales",
      .caption = "CREDIT SALES _ FOR A PERIOD",
      .inputs = tab_order(date_picker("DTPicker1", " FROM"), date_picker("DTPicker2", "TO"),
                          combo("Combo1", "SELECT THE COUNTER")),
      .walk = {"DTPicker1", "DTPicker2", "Combo1", "cmdView"},
      .counters = 6,
      .orders = {{"cmdView", "&View", " order by billno"}},
      .buttons = tab_order(button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w")),
      .refusals = {blank("Combo1", "Please Select the Counter")},
      .select = plain_select("CashPaid"),
      .condition =
          [](const BillInputs& inputs) {
            return "BillType in ('CREDIT BILL','HOME DELIVERY') AND " + in_period(inputs.period) +
                   of_counter(inputs);
          },
      .preview = sales_print("cmdprint"),
  };
  list.preview.refusals = {
      reversed("DTPicker1", "DTPicker2", "The Start Date Is Greater Than The End Date")};
  return list;
}

}  // namespace tela
