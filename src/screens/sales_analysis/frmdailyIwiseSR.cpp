#include "screens/sales_analysis/frmdailyIwiseSR.h"

#include "report_framework/report_preview.h"
#include "screens/sales_analysis/item_sales.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/retail_tables.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(date_picker("DTP", " DATE"));
  all.push_back(combo("Combo1", " COUNTER No."));
  all.push_back(text_box("tCounter"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(button("cmdClose", "&Close"));
  all.push_back(grid("MSHF", 6));
  all.push_back(total_box("tTotalQty", "TOTAL QTY"));
  all.push_back(total_box("tTotal", "TOTAL"));
  return all;
}

GridColumns grid_columns() {
  const std::string& mask = item_sales::kMask;
  return {
      {"CODE", 1000, field(0)},
      {"ITEM NAME", 5800, trimmed_field(1)},
      {"M.R.P", 1400, number_field(2, mask)},
      {"SALE RATE", 1400, number_field(3, mask)},
      {"QTY", 1000, number_field(4, mask), {"tTotalQty", "#####0"}},
      {"AMOUNT", 1400, number_field(5, mask), {"tTotal", "#####0"}},
  };
}

}  // namespace

frmdailyIwiseSR::frmdailyIwiseSR(AppState& app)
    : GridReport(app, "frmdailyIwiseSR", "DAILY ITEMWISE SALES REPORT", controls(), grid_columns(),
                 {0, 5}) {
  key_walk({"DTP", "Combo1", "cmdView"});
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void frmdailyIwiseSR::fill_lists() {
  form().at("Combo1").items = counter_entries(item_sales::kCounters);
}

std::string frmdailyIwiseSR::sql(const Inputs& inputs) {
  return "select icode,iname,mrp,salerate,sum(qty),sum(qty) * salerate from sales where "
         "billdate='" +
         inputs.day + "'" + (inputs.counter ? " and counter=" + *inputs.counter : "") +
         " group by icode,iname,mrp,salerate order by iname";
}

void frmdailyIwiseSR::view() {
  app().FromDate = picked_date("DTP");
  if (refuse_blank("Combo1", "Please Select the COUNTER", Icon::critical)) return;
  OpenRs(app(), sql({app().FromDate, take_counter()}));
  FillGrid();
  CloseRs(app());
  TotalAll();
  RowHeading();
  ChangeCellColour();
}

void frmdailyIwiseSR::preview() {
  if (!ask(std::string(item_sales::kQuestion))) return;
  app().FromDate = picked_date("DTP");
  stage_rows(app(), grid(),
             item_sales::staging(grid(), {0, app().FromDate, app().FromDate, filter()}),
             StagingTransactions::one);
  open_preview(app(), item_sales::kReportFile, item_sales::kReportQuery);
}

}  // namespace tela
