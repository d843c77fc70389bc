#include "screens/sales_analysis/filtered_sales.h"

#include <utility>

#include "report_framework/report_preview.h"
#include "screens/sales_analysis/item_sales.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

const std::string kMask = "########0.00";

std::vector<Control> controls(const SalesFilter& filter) {
  return tab_order(
      date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"), combo("Combo1", filter.label),
      button("cmdView", "By Code"), button("cmdName", "By Name"), button("cmdAsc", "By Asc"),
      button("cmdDes", "By Dec"), button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
      grid("MSHF", 7), label("lTotalRows"), total_box("tTotalQty", "TOTAL QTY SOLD"),
      total_box("tTotal", "TOTAL SALE RATE"));
}

GridColumns grid_columns() {
  return {
      {"S.N.", 800, row_number()},
      {"CODE", 1000, field(0)},
      {"ITEM NAME", 5800, trimmed_field(1)},
      {"M.R.P", 1400, number_field(2, kMask)},
      {"SALE RATE", 1400, number_field(3, kMask)},
      {"QTY", 1000, number_field(4, kMask), {"tTotalQty", "######0.00"}},
      {"AMOUNT", 1600, number_field(5, kMask), {"tTotal", "########0.00"}},
  };
}

std::string order_by(const SalesFilter& filter, FilteredSales::Order order) {
  switch (order) {
    case FilteredSales::Order::code:
      return "S.iCode";
    case FilteredSales::Order::name:
      return "S.iname";
    case FilteredSales::Order::quantity_rising:
      return "sum(Qty) asc";
    case FilteredSales::Order::quantity_falling:
      return "sum(Qty) " + filter.descending;
  }
  return {};
}

}  // namespace

FilteredSales::FilteredSales(AppState& app, SalesFilter filter)
    : Screen(app, filter.screen, filter.caption, controls(filter)),
      filter_(std::move(filter)),
      grid_(form(), grid_columns(), {.bands = RowBands{1, 6}}) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_press("cmdView", [this] { list(Order::code); });
  on_press("cmdName", [this] { list(Order::name); });
  on_press("cmdAsc", [this] { list(Order::quantity_rising); });
  on_press("cmdDes", [this] { list(Order::quantity_falling); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
}

void FilteredSales::fill_lists() {
  fill_combo("Combo1", filter_.list_sql);
}

std::string FilteredSales::sql(const SalesFilter& filter, const Inputs& inputs) {
  const bool aliased = inputs.order == Order::code && !filter.aliased_head.empty();
  const std::string head =
      aliased ? filter.aliased_head
              : "select S.icode,S.iname,S.mrp,S.salerate,sum(S.qty),sum(S.qty) * S.salerate,";
  return head + filter.source + " where S.billdate>=" + sql_text(inputs.period.from) +
         " and S.billdate<=" + sql_text(inputs.period.to) + " and " + filter.condition + "=" +
         sql_text(inputs.value) + " group by S.icode,S.iname,S.mrp,S.salerate," + filter.column +
         " order by " + order_by(filter, inputs.order);
}

void FilteredSales::list(Order order) {
  if (refused(empty("Combo1", filter_.blank_message))) return;
  grid_.show(app(), sql(filter_, {take_period(), filter(), order}), [this](const Recordset& rs) {
    form().set_text("lTotalRows", "Total Rows = " + std::to_string(rs.record_count()));
  });
}

void FilteredSales::preview() {
  if (!ask(item_sales::kQuestion)) return;
  const Period period = take_period();
  const auto values = [&](const GridRow& row) -> std::vector<std::string> {
    return {sql_text(period.from), sql_text(period.to), row.number(1),
            row.text(2),           row.numbers(3, 6),   sql_text(filter())};
  };
  stage_rows(app(), grid_,
             {.clear = "Delete FROM  SalesCatagory",
              .insert = "Insert into SalesCatagory values(",
              .counted_by = 1,
              .values = values});
  open_preview(app(), filter_.report_file, "SELECT * FROM SalesCatagory");
}

}  // namespace tela
