#include "screens/profit/frmMonthlyProfit.h"

#include "screens/profit/profit_list.h"

namespace tela {

frmMonthlyProfit::frmMonthlyProfit(AppState& app)
    : ItemProfitReport(app, {"frmMonthlyProfit", " MONTHLY PROFIT REPORT", {}}) {}

std::string frmMonthlyProfit::staging_sql(const Inputs& inputs) {
  const std::string hundred = inputs.order == Order::item ? "100.0" : "100";
  return "Insert into #TableProfit select icode,iname,mrp,salerate,purrate,qty,"
         "qty * salerate as TotalSales,qty * purrate as TotalPurchase,"
         "(qty * salerate )- (qty * purrate) as Profit," +
         profit_list::percent_case("", hundred) + " from sales where BillDate>='" + inputs.from +
         "' AND BillDate<='" + inputs.to + "'";
}

}  // namespace tela
