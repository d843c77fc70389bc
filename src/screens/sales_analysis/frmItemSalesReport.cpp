#include "screens/sales_analysis/frmItemSalesReport.h"

#include <algorithm>

#include "report_framework/report_preview.h"
#include "screens/sales_analysis/item_sales.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/retail_tables.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  return tab_order(
      date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"), combo("Combo1", "SELECT THE COUNTER"),
      button("cmdView", "&View"), button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
      grid("MSHF", 7), total_box("tTotalQty", "TOTAL QTY"), total_box("tTotal", "TOTAL SALE RATE"));
}

GridColumns grid_columns() {
  const std::string& mask = item_sales::kMask;
  return {
      {"S.No.", 800, row_number()},
      {"CODE", 1000, field(0)},
      {"ITEM NAME", 5800, trimmed_field(1)},
      {"M.R.P.", 1200, number_field(2, mask)},
      {"SALE RATE", 1200, number_field(3, mask)},
      {"QTY", 1200, number_field(4, mask), {"tTotalQty", "######0.00"}},
      {"AMOUNT", 1400, number_field(5, mask), {"tTotal", "########0.00"}},
  };
}

}  // namespace

frmItemSalesReport::frmItemSalesReport(AppState& app)
    : Screen(app, "frmItemSalesReport", "MONTHLY PRODUCT WISE SALES REPORT", controls()),
      grid_(form(), grid_columns(),
            {.bands = RowBands{1, 6},
             .whole_amounts = "CATAGORY WISE SALES or SUPPLIER WISE SALES"}) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
}

void frmItemSalesReport::fill_lists() {
  form().at("Combo1").items = counter_entries(item_sales::kCounters);
}

std::string frmItemSalesReport::sql(const Inputs& inputs) {
  return "select icode'CODE',iname'ITEM NAME',STR(mrp,8,2)'M.R.P',STR(salerate,8,2)'SALE "
         "RATE',str(sum(qty),8,3)'QTY',str(sum(qty) * salerate,8,2)'AMOUNT' from sales where "
         "billdate>=" +
         sql_text(inputs.period.from) + " and billdate<=" + sql_text(inputs.period.to) +
         (inputs.counter ? " and counter=" + *inputs.counter : "") +
         " group by icode,iname,mrp,salerate order by iname";
}

// Only the entries of the list run a statement; the combo accepts typing, but no other counter.
void frmItemSalesReport::view() {
  const Period period = take_period();
  if (refused(blank("Combo1", "Please Select The Counter", Icon::information))) return;
  const Control& chosen = form().at("Combo1");
  if (std::find(chosen.items.begin(), chosen.items.end(), chosen.text) != chosen.items.end())
    return grid_.show(app(), sql({period, take_counter(form())}));
  grid_.clear();
  tell("PLEASE SELECT THE COUNTER", Icon::information);
  grid_.finish();
}

void frmItemSalesReport::preview() {
  if (!ask(item_sales::kQuestion)) return;
  stage_rows(app(), grid_, item_sales::staging(1, take_period(), filter()));
  open_preview(app(), item_sales::kReportFile, item_sales::kReportQuery);
}

}  // namespace tela
