#include "screens/maintenance/frmCatWSaleDelete.h"

#include "report_framework/staging.h"
#include "screens/maintenance/long_statement.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

CategoryLines definition() {
  return {
      .screen = "frmCatWSaleDelete",
      .caption = "CATAGORY WHOLE SALE DELETE",
      .list_caption = "&View",
      .buttons = tab_order(button("cmdClose", "&Close")),
      .totals = tab_order(label("ltotsales", "TOTAL SALE RATE").with_text("0.00"),
                          label("ltotprofit", "TOTAL QTY SOLD").with_text("0.00")),
      .amount_total = "ltotsales",
      .quantity_total = "ltotprofit",
  };
}

}  // namespace

frmCatWSaleDelete::frmCatWSaleDelete(AppState& app) : CategoryLinesScreen(app, definition()) {
  on_press("cmdView", [this] { view(); });
  on_press("cmdDelete", [this] { delete_lines(); });
  close_on("cmdClose");
}

std::string frmCatWSaleDelete::sql(const Inputs& inputs) {
  return "select sales.billno,sales.billdate,SALES.icode'CODE',SALES.iname'ITEM NAME',"
         "str(SALES.amount,8,2)'AMOUNT',sum(SALES.qty)'QTY',MAX(ITEMS.CATAGORY)'CATAGORY' from "
         "sales,ITEMS where billdate>=" +
         sql_text(inputs.period.from) + " and billdate<=" + sql_text(inputs.period.to) +
         " and catagory=" + sql_text(inputs.category) +
         " AND SALES.ICODE=ITEMS.ICODE group by sales.billno,sales.billdate,SALES.icode,"
         "SALES.iname,SALES.amount,ITEMS.CATAGORY";
}

void frmCatWSaleDelete::view() {
  const Inputs inputs = take_inputs();
  lines().clear();
  if (!form().text("Combo1").empty())
    pass_over([&] {
      lines().fill(app(), OpenRs(app(), sql(inputs)));
      CloseRs(app());
      lines().note_lacking(app(), sql(inputs));
    });
  lines().finish();
}

void frmCatWSaleDelete::delete_lines() {
  const Period period = take_period();
  WayBack way_back(app(), name());
  remove_listed(way_back);
  sum_bills(way_back, period);
  tell("ok", Icon::information);
}

// Every row of the list, whatever is selected.
void frmCatWSaleDelete::remove_listed(WayBack& way_back) {
  way_back.begin();
  app().Con->set_command_timeout(kLongStatement);
  for (int row = 1; row < lines().cells().Rows(); ++row) {
    if (lines().number(row, 0) <= 0) continue;
    const GridRow line(lines(), row);
    const std::string where = "where billno=" + line.number(0) + " and icode=" + line.number(2);
    way_back.keep_removed("wsales", where, {"BillNo", "iCode"});
    app().Con->execute("Delete from wsales " + where);
  }
  way_back.commit();
}

void frmCatWSaleDelete::sum_bills(WayBack& way_back, const Period& period) {
  way_back.begin();
  app().Con->set_command_timeout(kLongStatement);
  Recordset& bills = OpenRs(
      app(), "select billno,sum(amount) from wsales where billdate>=" + sql_text(period.from) +
                 " and billdate<=" + sql_text(period.to) + " group by billno order by billno");
  for (; !bills.eof(); bills.move_next())
    sum_bill(way_back, sql_number(field_text(bills.field(0))),
             sql_number(field_text(bills.field(1))));
  CloseRs(app());
  way_back.commit();
}

void frmCatWSaleDelete::sum_bill(WayBack& way_back, const std::string& bill,
                                 const std::string& sum) {
  const std::string where = "where billno=" + bill;
  const std::string saved =
      "(select sum(mrp * qty) - sum(salerate * qty) from wsales " + where + ")";
  const std::string net = "(select netamount from wsalestemp " + where + ")";
  way_back.keep_changed(
      "wsalestemp",
      {{"netamount", sum}, {"cashret", "cashpaid+cardpaid+mealspaid - " + sum}, {"uhsaved", saved}},
      where, {"BillNo"});
  app().Con->execute("update wsalestemp set netamount=" + sum + " " + where);
  way_back.keep_changed("wsales", {{"netamount", net}}, where);
  app().Con->execute("Update wsales set netamount=" + net + " " + where);
  app().Con->execute("Update wsalestemp set cashret=cashpaid+cardpaid+mealspaid - netamount " +
                     where);
  app().Con->execute("Update wsalestemp set uhsaved=" + saved + "  " + where);
}

}  // namespace tela
