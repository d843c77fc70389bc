#include "screens/profit/frmBillWiseProfit.h"

#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

GridColumns columns() {
  const std::string mask = "######0.00";
  return {
      {"S No", 800, row_number()},
      {"Bill No", 900, field(0)},
      {"Bill Date", 1300, date_field(1, "dd/mm/yyyy")},
      {"Bill Time", 1300, time_field(2, "HH:MM:SS AM/PM")},
      {"Counter", 900, field(3)},
      {"Staff Name", 3200, trimmed_field(4)},
      {"Sale Rate", 1200, number_field(5, mask), {"tTotalSales", "#######0.00"}},
      {"Pur_Rate", 1200, number_field(6, mask), {"tTotalPurchase", "#######0.00"}},
      {"Bill Profit", 1200, number_field(7, mask)},
      {"Profit %", 1200, number_field(8, "####0.00")},
  };
}

// A bill in the columns of an item: its number stands as the code, and its day, time, counter and
// staff as the name. It has no rates and no quantity of its own, so those stay empty.
std::vector<std::string> staged(const GridRow& row) {
  const std::string bill =
      row.cell(2) + "  " + row.cell(3) + "  C" + row.cell(4) + "  " + row.cell(5);
  return {row.numbers(0, 1), sql_text(bill), "null", "null", "null", "null", row.numbers(6, 8)};
}

ProfitDefinition definition() {
  ProfitDefinition made;
  made.screen = "frmBillWiseProfit";
  made.caption = "PROFIT REPORT - BILL WISE";
  made.columns = columns();
  made.percent_column = 9;
  made.list_sql = frmBillWiseProfit::list_sql;
  made.staged = staged;
  return made;
}

}  // namespace

frmBillWiseProfit::frmBillWiseProfit(AppState& app) : ProfitReport(app, definition()) {
  drill_down_on("MSHF", 1, &AppState::SaleBillNo, "frmProfitView");
}

std::string frmBillWiseProfit::sql(const Inputs& inputs) {
  return "Insert Into BillWiseProfit Select BillNo,BillDate,icode,(Qty * SaleRate) as SaleRate,"
         "Qty * PurRate as purRate,(Qty * SaleRate)-(Qty * PurRate) as Profit," +
         percent_case("", inputs.order == ProfitOrder::percent_rising ? "100.0" : "100") +
         " from Sales  where BillDate>=" + sql_text(inputs.period.from) +
         " and billdate<=" + sql_text(inputs.period.to);
}

std::string frmBillWiseProfit::list_sql(ProfitOrder order) {
  const std::string head =
      "Select B.BillNo,S.BillDate,S.BillTime,S.Counter,S.Staff,sum(B.SaleRate),sum(B.PurRate),"
      "sum(B.Profit),avg(B.ProfitPercent)";
  const std::string grouping =
      " from BillWiseProfit B Join SalesTemp S On B.BillNo=S.BillNo group by "
      "B.BillNo,S.BillDate,S.BillTime,S.Counter,S.Staff order by ";
  switch (order) {
    case ProfitOrder::key:
      return head + grouping + "B.BillNo";
    case ProfitOrder::percent_rising:
      return head + " as Prfot" + grouping + "Prfot";
    case ProfitOrder::percent_falling:
      return head + " as Prfot" + grouping + "Prfot Desc";
  }
  return {};
}

void frmBillWiseProfit::with_staged_lines(const Period& period, ProfitOrder order,
                                          const std::function<void()>& list) {
  Transaction clearing(*app().Con);
  app().Con->execute("Delete from BillWiseProfit");
  clearing.commit();
  Transaction filling(*app().Con);
  execute_profit(app(), sql({period, order}));
  filling.commit();
  list();
}

}  // namespace tela
