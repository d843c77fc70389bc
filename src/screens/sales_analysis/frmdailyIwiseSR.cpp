#include "screens/sales_analysis/frmdailyIwiseSR.h"

#include "report_framework/report_preview.h"
#include "screens/sales_analysis/item_sales.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/retail_tables.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  return tab_order(date_picker("DTP", " DATE"), combo("Combo1", " COUNTER No."),
                   text_box("tCounter"), button("cmdView", "&View"),
                   button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
                   button("cmdClose", "&Close"), grid("MSHF", 6),
                   total_box("tTotalQty", "TOTAL QTY"), total_box("tTotal", "TOTAL"));
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
    : Screen(app, "frmdailyIwiseSR", "DAILY ITEMWISE SALES REPORT", controls()),
      grid_(form(), grid_columns(), {.bands = RowBands{0, 5}}) {
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
         "billdate=" +
         sql_text(inputs.day) + (inputs.counter ? " and counter=" + *inputs.counter : "") +
         " group by icode,iname,mrp,salerate order by iname";
}

// The list stays as it is until the new one has been read.
void frmdailyIwiseSR::view() {
  if (refused(empty("Combo1", "Please Select the COUNTER"))) return;
  const Period day = take_day("DTP");
  grid_.fill(app(), OpenRs(app(), sql({day.from, take_counter(form())})));
  CloseRs(app());
  grid_.finish();
}

void frmdailyIwiseSR::preview() {
  if (!ask(item_sales::kQuestion)) return;
  stage_rows(app(), grid_, item_sales::staging(0, take_day("DTP"), filter()));
  open_preview(app(), item_sales::kReportFile, item_sales::kReportQuery);
}

}  // namespace tela
