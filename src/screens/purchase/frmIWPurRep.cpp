#include "screens/purchase/frmIWPurRep.h"

#include "report_framework/report_preview.h"
#include "report_framework/staging.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

GridColumns columns() {
  return {
      {"CODE", 800, field(0)},
      {"Product Name", 2400, field(1)},
      {"Qty", 700, field(2)},
      {"F_Qty", 700, field(3)},
      {"Tot_Qty", 800, field(4)},
      {"Pur_Rate", 1000, field(5)},
      {"Amount", 1000, field(6), {"LTotal", "#########0.00"}},
  };
}

}  // namespace

frmIWPurRep::frmIWPurRep(AppState& app)
    : Screen(app, "frmIWPurRep", "ITEMWISE PURCHASE REPORT",
             tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
                       button("cmdView", "&View"), button("cmdPrint", "Previe&w"),
                       button("cmdRefresh", "&Refresh"), button("cmdclose", "&Close        "),
                       grid("MSHF", 7), label("LTotal", "TOTAL PURCHASE").with_text("0.00"))),
      grid_(form(), columns(), {.whole_amounts = "Product Purchase Report"}) {
  key_walk({"DTP1", "DTP2"});
  on_key("DTP2", Key::enter, [this] { view(); });
  on_press("cmdView", [this] { view(); });
  on_press("cmdPrint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdclose");
}

std::string frmIWPurRep::sql(const Period& period) {
  return "Select icode'Code',iname'ProductName',sum(qty)'Qty',sum(fqty)'FQty',"
         "sum(qty+fqty)'TotalQty',str(purrate,8,3)'Pur_Rate',str(sum(qty)* purrate,10,2)'Amount' "
         "from purchase Where billdate>=" +
         sql_text(period.from) + " and billdate<=" + sql_text(period.to) +
         " group by icode,iname,purrate";
}

void frmIWPurRep::view() {
  pass_over([this] { grid_.show(app(), sql({picked_day("DTP1"), picked_day("DTP2")})); });
}

void frmIWPurRep::preview() {
  if (refused(reversed("DTP1", "DTP2", "The Start Date Is Greater Than The End Date"))) return;
  const auto values = [this](const GridRow& row) -> std::vector<std::string> {
    return {sql_text(picked_day("DTP1")), sql_text(picked_day("DTP2")), row.number(0), row.text(1),
            row.numbers(2, 6)};
  };
  stage_rows(app(), grid_,
             {.clear = "Delete from frmIWPurRep",
              .insert = "Insert into frmIWPurRep values(",
              .values = values});
  open_preview(app(), "frmIWPurPrint.rpt", "SELECT * FROM frmIWPurRep");
}

}  // namespace tela
