#include "screens/sales_analysis/filtered_sales.h"

#include <utility>

#include "platform/text/number_text.h"
#include "report_framework/report_preview.h"
#include "screens/sales_analysis/item_sales.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

const std::string kMask = "########0.00";

std::vector<Control> controls(const SalesFilter& filter) {
  std::vector<Control> all;
  all.push_back(date_picker("DTP1", "FROM"));
  all.push_back(date_picker("DTP2", "TO"));
  all.push_back(combo("Combo1", filter.label));
  all.push_back(button("cmdView", "By Code"));
  all.push_back(button("cmdName", "By Name"));
  all.push_back(button("cmdAsc", "By Asc"));
  all.push_back(button("cmdDes", "By Dec"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(grid("MSHF", 7));
  all.push_back(label("lTotalRows"));
  all.push_back(total_box("tTotalQty", "TOTAL QTY SOLD"));
  all.push_back(total_box("tTotal", "TOTAL SALE RATE"));
  return all;
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
    : GridReport(app, filter.screen, filter.caption, controls(filter), grid_columns(), {1, 6}),
      filter_(std::move(filter)) {
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
  return head + filter.source + " where S.billdate>='" + inputs.from + "' and S.billdate<='" +
         inputs.to + "' and " + filter.condition + "='" + sql_quoted(inputs.value) +
         "' group by S.icode,S.iname,S.mrp,S.salerate," + filter.column + " order by " +
         order_by(filter, inputs.order);
}

void FilteredSales::list(Order order) {
  if (refuse_blank("Combo1", filter_.blank_message, Icon::critical)) return;
  take_period();
  empty_grid(grid());
  const Recordset& rs =
      OpenRs(app(), sql(filter_, {app().FromDate, app().ToDate, filter(), order}));
  form().set_text("lTotalRows", "Total Rows = " + std::to_string(rs.record_count()));
  FillGrid();
  CloseRs(app());
  RowHeading();
  ChangeCellColour();
  TotalAll();
}

void FilteredSales::preview() {
  if (!ask(std::string(item_sales::kQuestion))) return;
  take_period();
  const auto insert = [this](int row) -> std::string {
    if (Val(grid().TextMatrix(row, 1)) <= 0) return {};
    return "Insert into SalesCatagory values('" + app().FromDate + "','" + app().ToDate + "'," +
           grid().TextMatrix(row, 1) + ",'" + quoted_cell(grid(), row, 2) + "'," +
           bare_cells(grid(), row, 3, 6) + ",'" + sql_quoted(filter()) + "')";
  };
  stage_rows(app(), grid(), {"Delete FROM  SalesCatagory", insert}, StagingTransactions::one);
  open_preview(app(), filter_.report_file, "SELECT * FROM SalesCatagory");
}

}  // namespace tela
