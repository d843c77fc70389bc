#include "screens/profit/item_profit.h"

#include <utility>

#include "platform/text/number_text.h"
#include "report_framework/busy_pointer.h"
#include "report_framework/temporary_table.h"
#include "screens/profit/profit_list.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

std::vector<Control> controls(std::vector<Control> all) {
  all.push_back(date_picker("DTP1", "FROM"));
  all.push_back(date_picker("DTP2", "TO"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(picture_button("cmdAss", "ascending"));
  all.push_back(picture_button("CmdDesc", "descending"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(button("cmdClose", "&Close"));
  all.push_back(grid("MSHF", 11));
  profit_list::add_totals(all);
  all.push_back(total_box("tStock", "TOTAL STOCK VALUE"));
  all.push_back(total_box("tMargin", "PROFIT  %"));
  all.push_back(label("tTotalRows").with_text("0"));
  return all;
}

}  // namespace

ItemProfitReport::ItemProfitReport(AppState& app, ItemProfitDefinition definition)
    : GridReport(app, definition.screen, definition.caption, controls(std::move(definition.inputs)),
                 profit_list::item_columns("###0.00"), {1, 10}) {
  key_walk({"DTP1", "DTP2"});
  on_key("DTP2", Key::enter, [this] { list(Order::item); });
  on_press("cmdView", [this] { list(Order::item); });
  on_press("cmdAss", [this] { list(Order::percent_rising); });
  on_press("CmdDesc", [this] { list(Order::percent_falling); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void ItemProfitReport::fill_lists() {
  const Recordset& rs = OpenRs(app(), profit_list::kStockValueSql);
  form().set_text("tStock", cell_text(rs.field(0), number_field(0, "#########0.00")));
  CloseRs(app());
}

std::string ItemProfitReport::create_sql() {
  return "Create Table #TableProfit (iCode Numeric,iName varchar(60),mrp float,SaleRate float,"
         "PurRate float,Qty float,TotalSales Float,TotalPurchase Float,Profit float,"
         "ProfitPercent float)";
}

std::string ItemProfitReport::list_sql(Order order) {
  const std::string head =
      "select iCode,iName,mrp,SaleRate,PurRate,sum(Qty),sum(TotalSales),sum(TotalPurchase),"
      "sum(Profit),avg(ProfitPercent)";
  const std::string grouping =
      " from #TableProfit Group by iCode,iName,mrp,SaleRate,PurRate Order By ";
  switch (order) {
    case Order::item:
      return head + grouping + "icode";
    case Order::percent_rising:
      return head + " as Profit" + grouping + "Profit";
    case Order::percent_falling:
      return head + " as Profit" + grouping + "Profit Desc";
  }
  return {};
}

void ItemProfitReport::list(Order order) {
  if (!may_list(order)) return;
  app().FromDate = picked_date("DTP1");
  app().ToDate = picked_date("DTP2", "DD/MMM/YYYY");
  empty_grid(grid());
  BusyPointer busy(app().display);
  TemporaryTable table(*app().Con, "#TableProfit");
  stage_lines(order);
  OpenRs(app(), list_sql(order));
  FillGrid();
  CloseRs(app());
  RowHeading();
  busy.end();
  TotalAll();
  profit_list::write_total_profit(form(), grid());
  ChangeCellColour();
  profit_list::write_average(app(), form(), grid(),
                             {10, 0, "tMargin", "#######0.00", "######0.00"});
  table.drop();
}

void ItemProfitReport::stage_lines(Order order) {
  Transaction staging(*app().Con);
  app().Con->execute(create_sql());
  profit_list::execute_profit(app(),
                              insert_sql({app().FromDate, app().ToDate,
                                          form().has("Combo1") ? filter() : std::string(), order}));
  staging.commit();
}

void ItemProfitReport::preview() {
  if (refuse_reversed("DTP1", "DTP2", "The Start Date Is Greater Than The End Date",
                      Icon::critical))
    return;
  take_period();
  profit_list::preview(app(), grid(), [this](int row) {
    return bare_cells(grid(), row, 0, 1) + ",'" + quoted_cell(grid(), row, 2) + "'," +
           bare_cells(grid(), row, 3, 9);
  });
}

}  // namespace tela
