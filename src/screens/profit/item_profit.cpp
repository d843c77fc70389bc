#include "screens/profit/item_profit.h"

#include <utility>

#include "report_framework/temporary_table.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela::item_profit {

GridColumns columns(std::string percent_mask) {
  const std::string rate = "######0.00";
  const std::string total = "#######0.00";
  return {
      {"S No", 800, row_number()},
      {"CODE", 800, field(0)},
      {"ITEM NAME", 3600, trimmed_field(1)},
      {"MRP", 1000, number_field(2, rate)},
      {"SALE RATE", 1000, number_field(3, rate)},
      {"PurRate", 1000, number_field(4, rate)},
      {"QTY", 1000, number_field(5, rate)},
      {"AMOUNT", 1000, number_field(6, rate), {"tTotalSales", total}},
      {"Pur_Amt", 1000, number_field(7, rate), {"tTotalPurchase", total}},
      {"PROFIT", 1000, number_field(8, "#########0.00")},
      {"PROFIT %", 1000, number_field(9, std::move(percent_mask))},
  };
}

std::vector<std::string> staged(const GridRow& row) {
  return {row.numbers(0, 1), row.text(2), row.numbers(3, 9)};
}

ProfitDefinition definition(std::string screen, std::string caption, std::vector<Control> filters) {
  ProfitDefinition made;
  made.screen = std::move(screen);
  made.caption = std::move(caption);
  made.filters = std::move(filters);
  made.results.push_back(total_box("tStock", "TOTAL STOCK VALUE"));
  made.columns = columns("###0.00");
  made.percent_column = 10;
  made.list_sql = list_sql;
  made.staged = staged;
  return made;
}

std::string create_sql() {
  return "Create Table #TableProfit (iCode Numeric,iName varchar(60),mrp float,SaleRate float,"
         "PurRate float,Qty float,TotalSales Float,TotalPurchase Float,Profit float,"
         "ProfitPercent float)";
}

std::string list_sql(ProfitOrder order) {
  const std::string head =
      "select iCode,iName,mrp,SaleRate,PurRate,sum(Qty),sum(TotalSales),sum(TotalPurchase),"
      "sum(Profit),avg(ProfitPercent)";
  const std::string grouping =
      " from #TableProfit Group by iCode,iName,mrp,SaleRate,PurRate Order By ";
  switch (order) {
    case ProfitOrder::key:
      return head + grouping + "icode";
    case ProfitOrder::percent_rising:
      return head + " as Profit" + grouping + "Profit";
    case ProfitOrder::percent_falling:
      return head + " as Profit" + grouping + "Profit Desc";
  }
  return {};
}

void with_table(AppState& app, const std::string& insert_sql, const std::function<void()>& list) {
  TemporaryTable table(*app.Con, "#TableProfit");
  Transaction staging(*app.Con);
  app.Con->execute(create_sql());
  execute_profit(app, insert_sql);
  staging.commit();
  list();
  table.drop();
}

void write_stock_value(AppState& app, Form& form, std::string_view box) {
  const Recordset& rs = OpenRs(app, "select str(sum(stock * purrate),12,2) from items");
  form.set_text(box, cell_text(rs.field(0), number_field(0, "#########0.00")));
  CloseRs(app);
}

}  // namespace tela::item_profit
