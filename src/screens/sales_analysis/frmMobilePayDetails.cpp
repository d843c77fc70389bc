#include "screens/sales_analysis/frmMobilePayDetails.h"

#include "shell/app_state.h"
#include "shell/retail_tables.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

constexpr int kCounters = 6;

std::vector<Control> controls() {
  return tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                   combo("Combo1", "COUNTER"), text_box("tCounter"), button("cmdView", "&View"),
                   grid("MSHF", 3), total_box("tTotalAmount", " TOTAL AMOUNT"));
}

GridColumns grid_columns() {
  return {
      {"S/N", 1200, row_number()},
      {"PAYMENT TYPE", 3000, trimmed_field(0)},
      {"AMOUNT", 3000, number_field(1, "########0.00"), {"tTotalAmount", "#######0.00"}},
  };
}

}  // namespace

frmMobilePayDetails::frmMobilePayDetails(AppState& app)
    : Screen(app, "frmMobilePayDetails", "MOBILE PAYMENT DETAILS", controls()),
      grid_(form(), grid_columns()) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_press("cmdView", [this] { view(); });
}

void frmMobilePayDetails::fill_lists() {
  form().at("Combo1").items = counter_entries(kCounters);
}

std::string frmMobilePayDetails::sql(const Inputs& inputs) {
  return "select MobilePayType,SUM(MobilePay) from salestemp where billdate>=" +
         sql_text(inputs.period.from) + " AND BILLDATE<=" + sql_text(inputs.period.to) +
         (inputs.counter ? " AND counter=" + *inputs.counter : "") +
         " GROUP By MobilePayType order by MobilePayType";
}

void frmMobilePayDetails::view() {
  const Period period = take_period();
  grid_.clear();
  if (refused(blank("Combo1", "Please Select The Counter No."))) return;
  grid_.show(app(), sql({period, take_counter(form())}));
}

}  // namespace tela
