#include "screens/maintenance/frmCatSaleDelete.h"

#include "shell/sql_value.h"

namespace tela {

namespace {

CategoryLines definition() {
  return {
      .screen = "frmCatSaleDelete",
      .caption = "CATAGORY SALE DELETE",
      .list_caption = "By Code",
      .buttons = tab_order(button("Command1", "By Name"), button("Command2", "By Asc"),
                           button("Command3", "By Dec")),
      .totals = tab_order(total_box("tTotalQty", "TOTAL QTY SOLD"),
                          total_box("tTotal", "TOTAL SALE RATE")),
      .amount_total = "tTotal",
      .quantity_total = "tTotalQty",
  };
}

}  // namespace

frmCatSaleDelete::frmCatSaleDelete(AppState& app) : CategoryLinesScreen(app, definition()) {
  on_press("cmdView", [this] { view(); });
  for (const char* order : {"Command1", "Command2", "Command3"})
    on_press(order, [this] { tell("No Other Order Available Now", Icon::information); });
  on_press("cmdDelete", [this] { tell("No Delete Available Now", Icon::information); });
}

std::string frmCatSaleDelete::sql(const Inputs& inputs) {
  return "select S.billno,S.billdate,S.icode,S.iname,S.amount,sum(S.qty),I.CATAGORY from sales S "
         "Join ITEMS I On S.iCode=I.iCode where S.billdate>=" +
         sql_text(inputs.period.from) + " and S.billdate<=" + sql_text(inputs.period.to) +
         " and I.catagory=" + sql_text(inputs.category) +
         " group by S.billno,S.billdate,S.icode,S.iname,S.amount,I.CATAGORY Order by S.iCode";
}

void frmCatSaleDelete::view() {
  const Inputs inputs = take_inputs();
  if (refused(blank("Combo1", "Please Select the Catagory", Icon::information))) return;
  lines().show(app(), sql(inputs));
}

}  // namespace tela
