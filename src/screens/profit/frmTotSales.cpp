#include "screens/profit/frmTotSales.h"

#include "shell/sql_value.h"

namespace tela {

namespace {

const char* const kAllSales = "ALL SALES";

std::vector<Control> controls() {
  return tab_order(
      date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"), combo("Combo1", "BILL TYPE"),
      button("cmdView", "&View"), button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
      button("cmdClose", "&Close"), grid("MSHF", 7), total_box("tTotal", "TOTAL SALES"));
}

GridColumns columns() {
  const std::string mask = "#########0.00";
  return {
      {"S NO", 800, row_number()},
      {"CODE", 1000, field(0)},
      {"PRODUCT NAME", 5300, trimmed_field(1)},
      {"MRP", 1100, number_field(2, mask)},
      {"SALE RATE", 1100, number_field(3, mask)},
      {"QTY", 1100, number_field(4, mask)},
      {"AMOUNT", 1300, number_field(5, mask), {"tTotal", "#######0.00"}},
  };
}

}  // namespace

frmTotSales::frmTotSales(AppState& app)
    : Screen(app, "frmTotSales", "TOT ITEMS SALES", controls()),
      grid_(form(), columns(), {.bands = RowBands{1, 6}}) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint", [this] { tell("No Print or Preview Available Now", Icon::information); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void frmTotSales::fill_lists() {
  form().at("Combo1").items = {"CASH/CREDIT", "POINTS SALES", "CREDIT BILL", "HOME DELIVERY",
                               kAllSales};
}

// An item counts under its present supplier, with all its past sales.
std::string frmTotSales::sql(const Inputs& inputs) {
  return "Select S.iCode,S.iName,S.mrp,S.SaleRate,Sum(S.Qty),S.SaleRate * sum(S.Qty) as Total from "
         "Sales S JOIN Salestemp ST On S.BillNo=ST.BillNo JOIN Items I On I.iCode=S.iCode JOIN "
         "Supplier Su on I.Supplier=Su.Sname where Su.TaxType='TOT' and " +
         (inputs.bill_type == kAllSales ? ""
                                        : "ST.BillType=" + sql_text(inputs.bill_type) + " and ") +
         "S.BillDate>=" + sql_text(inputs.period.from) +
         " and S.BillDAte<=" + sql_text(inputs.period.to) +
         " Group by S.iCode,S.iName,S.mrp,S.SaleRate order by S.iCode";
}

void frmTotSales::view() {
  if (refused(blank("Combo1", "Please Select the Bill Type"))) return;
  grid_.show(app(), sql({take_period(), filter()}));
}

}  // namespace tela
