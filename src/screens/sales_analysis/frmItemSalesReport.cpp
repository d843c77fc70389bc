#include "screens/sales_analysis/frmItemSalesReport.h"

#include <algorithm>

#include "report_framework/report_preview.h"
#include "screens/sales_analysis/item_sales.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/retail_tables.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(date_picker("DTP1", "FROM"));
  all.push_back(date_picker("DTP2", "TO"));
  all.push_back(combo("Combo1", "SELECT THE COUNTER"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(grid("MSHF", 7));
  all.push_back(total_box("tTotalQty", "TOTAL QTY"));
  all.push_back(total_box("tTotal", "TOTAL SALE RATE"));
  return all;
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
    : GridReport(app, "frmItemSalesReport", "MONTHLY PRODUCT WISE SALES REPORT", controls(),
                 grid_columns(), {1, 6}) {
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
         "billdate>='" +
         inputs.from + "' and billdate<='" + inputs.to + "'" +
         (inputs.counter ? " and counter=" + *inputs.counter : "") +
         " group by icode,iname,mrp,salerate order by iname";
}

void frmItemSalesReport::view() {
  take_period();
  if (refuse_blank("Combo1", "Please Select The Counter", Icon::information)) return;
  empty_grid(grid());
  list();
  RowHeading();
  ChangeCellColour();
  TotalAll();
}

// Only the entries of the list run a statement; the combo accepts typing, but no other counter.
void frmItemSalesReport::list() {
  const Control& chosen = form().at("Combo1");
  if (std::find(chosen.items.begin(), chosen.items.end(), chosen.text) == chosen.items.end())
    return tell("PLEASE SELECT THE COUNTER", Icon::information);
  OpenRs(app(), sql({app().FromDate, app().ToDate, counter_number(chosen.text)}));
  FillGrid();
  CloseRs(app());
}

void frmItemSalesReport::preview() {
  if (!ask(std::string(item_sales::kQuestion))) return;
  take_period();
  stage_rows(app(), grid(),
             item_sales::staging(grid(), {1, app().FromDate, app().ToDate, filter()}),
             StagingTransactions::one);
  open_preview(app(), item_sales::kReportFile, item_sales::kReportQuery);
}

}  // namespace tela
