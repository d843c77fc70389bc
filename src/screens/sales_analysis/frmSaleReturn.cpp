#include "screens/sales_analysis/frmSaleReturn.h"

#include <algorithm>
#include <array>

#include "report_framework/report_preview.h"
#include "report_framework/staging.h"
#include "shell/app_state.h"
#include "shell/failure.h"
#include "shell/retail_tables.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

constexpr int kCounters = 4;
constexpr int kBillNo = 7;  // the column

std::vector<Control> controls() {
  return tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
                   combo("Combo1", "SELECT THE COUNTER"), button("cmdView", "&View"),
                   button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
                   button("cmdClose", "&Close"), grid("MSHF", 9),
                   total_box("tTotalQty", "TOTAL QTY"), total_box("tTotal", "TOTAL SALES"));
}

GridColumns grid_columns() {
  const std::string mask = "#######0.00";
  return {
      {"S No", 800, row_number()},
      {"CODE", 800, field(0)},
      {"ITEM NAME", 5200, trimmed_field(1)},
      {"M.R.P.", 1000, number_field(2, mask)},
      {"Sale Rate", 1000, number_field(3, mask)},
      {"QTY", 700, number_field(4, mask), {"tTotalQty", "######0.00"}},
      {"AMOUNT", 1000, number_field(5, mask), {"tTotal", "########0.00"}},
      {"Bill No", 1000, number_field(6, mask)},
      {"DATE", 1000, date_field(7, "DD/MM/YY")},
  };
}

}  // namespace

frmSaleReturn::frmSaleReturn(AppState& app)
    : Screen(app, "frmSaleReturn", "SALE RETURN REPORT", controls()),
      grid_(form(), grid_columns(),
            {.bands = RowBands{1, 8}, .size = FillSize::blank_row_behind, .counted_by = 1}) {
  key_walk({"DTP1", "DTP2", "Combo1"});
  on_key("Combo1", Key::enter, [this] { view(); });
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
  drill_down_on("MSHF", kBillNo, &AppState::SaleBillNo, "FrmBillView");
}

void frmSaleReturn::fill_lists() {
  form().at("Combo1").items = counter_entries(kCounters);
}

// Each counter's statement has always written the column of the date its own way.
std::string frmSaleReturn::sql(const Inputs& inputs) {
  const std::string condition = " from sales where billdate>=" + sql_text(inputs.period.from) +
                                " and billdate<=" + sql_text(inputs.period.to) + " and qty<0 ";
  if (inputs.counter == 0)
    return "select icode,iname,mrp,salerate,qty,amount,billno,billdate" + condition +
           " order by billno,iname";
  constexpr std::array<const char*, kCounters> kDate = {"BILLDATE", "Billdate", "billdate",
                                                        "BillDate"};
  return "select icode'CODE',iname'ITEM NAME',STR(mrp,8,2)'M.R.P',STR(salerate,8,2)'SALE "
         "RATE',qty'QTY',amount'AMOUNT',billno'Bill No'," +
         std::string(kDate.at(static_cast<std::size_t>(inputs.counter) - 1)) + condition +
         "and counter=" + std::to_string(inputs.counter) + " order by " +
         (inputs.counter == 1 ? "BILLNO" : "billno") + ",iname";
}

// Only the entries of the list run a statement; the combo accepts typing, but no other counter.
void frmSaleReturn::view() {
  const Period period = take_period();
  if (refused(blank("Combo1", "Please Select the counter"))) return;
  const Control& combo = form().at("Combo1");
  const auto chosen = std::find(combo.items.begin(), combo.items.end(), combo.text);
  if (chosen != combo.items.end()) {
    const int place = static_cast<int>(chosen - combo.items.begin());
    return grid_.show(app(), sql({period, place < kCounters ? place + 1 : 0}));
  }
  grid_.clear();
  tell("PLEASE SELECT THE COUNTER", Icon::information);
  grid_.finish();
}

// Whatever of the staging fails, the preview opens on what could be staged.
void frmSaleReturn::preview() {
  if (refused(reversed("DTP1", "DTP2", "The Start Date Is Greater Than The End Date"))) return;
  const Period period = take_period();
  const auto values = [&](const GridRow& row) -> std::vector<std::string> {
    return {sql_text(period.from), sql_text(period.to),     sql_text(filter()), row.numbers(0, 1),
            row.text(2),           row.numbers(3, kBillNo), row.date(8)};
  };
  const auto passed_over = [this](const std::runtime_error& failure) {
    app().display.hint(failure.what());
  };
  guarded(
      [&] {
        stage_rows(app(), grid_,
                   {.clear = "Delete from fSaleReturn",
                    .insert = "Insert into fSaleReturn values(",
                    .counted_by = kBillNo,
                    .values = values,
                    .passed_over = passed_over});
      },
      passed_over);
  open_preview(app(), "fSaleReturnPri.rpt", "SELECT * FROM fSaleReturn");
}

}  // namespace tela
