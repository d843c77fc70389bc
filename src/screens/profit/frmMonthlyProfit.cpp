#include "screens/profit/frmMonthlyProfit.h"

#include "screens/profit/item_profit.h"
#include "shell/sql_value.h"

namespace tela {

frmMonthlyProfit::frmMonthlyProfit(AppState& app)
    : ProfitReport(app, item_profit::definition("frmMonthlyProfit", " MONTHLY PROFIT REPORT")) {}

void frmMonthlyProfit::fill_lists() {
  item_profit::write_stock_value(app(), form());
}

std::string frmMonthlyProfit::sql(const Inputs& inputs) {
  return "Insert into #TableProfit select icode,iname,mrp,salerate,purrate,qty,"
         "qty * salerate as TotalSales,qty * purrate as TotalPurchase,"
         "(qty * salerate )- (qty * purrate) as Profit," +
         percent_case("", inputs.order == ProfitOrder::key ? "100.0" : "100") +
         " from sales where BillDate>=" + sql_text(inputs.period.from) +
         " AND BillDate<=" + sql_text(inputs.period.to);
}

void frmMonthlyProfit::with_staged_lines(const Period& period, ProfitOrder order,
                                         const std::function<void()>& list) {
  item_profit::with_table(app(), sql({period, order}), list);
}

}  // namespace tela
