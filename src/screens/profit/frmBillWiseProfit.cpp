#include "screens/profit/frmBillWiseProfit.h"

#include "report_framework/busy_pointer.h"
#include "screens/profit/profit_list.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(date_picker("DTP1", "FROM"));
  all.push_back(date_picker("DTP2", "TO"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(picture_button("cmdAss", "ascending"));
  all.push_back(picture_button("CmdDesc", "descending"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(button("cmdClose", "&Close"));
  all.push_back(grid("MSHF", 10));
  profit_list::add_totals(all);
  all.push_back(total_box("tMargin", "PROFIT  %"));
  all.push_back(label("tTotalRows").with_text("0"));
  return all;
}

GridColumns grid_columns() {
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

}  // namespace

frmBillWiseProfit::frmBillWiseProfit(AppState& app)
    : GridReport(app, "frmBillWiseProfit", "PROFIT REPORT - BILL WISE", controls(), grid_columns(),
                 {1, 9}) {
  key_walk({"DTP1", "DTP2"});
  on_key("DTP2", Key::enter, [this] { list(Order::bill); });
  on_press("cmdView", [this] { list(Order::bill); });
  on_press("cmdAss", [this] { list(Order::percent_rising); });
  on_press("CmdDesc", [this] { list(Order::percent_falling); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
  drill_down_on("MSHF", 1, "frmProfitView");
}

std::string frmBillWiseProfit::staging_sql(const std::string& from, const std::string& to,
                                           Order order) {
  const std::string hundred = order == Order::percent_rising ? "100.0" : "100";
  return "Insert Into BillWiseProfit Select BillNo,BillDate,icode,(Qty * SaleRate) as SaleRate,"
         "Qty * PurRate as purRate,(Qty * SaleRate)-(Qty * PurRate) as Profit," +
         profit_list::percent_case("", hundred) + " from Sales  where BillDate>='" + from +
         "' and billdate<='" + to + "'";
}

std::string frmBillWiseProfit::list_sql(Order order) {
  const std::string head =
      "Select B.BillNo,S.BillDate,S.BillTime,S.Counter,S.Staff,sum(B.SaleRate),sum(B.PurRate),"
      "sum(B.Profit),avg(B.ProfitPercent)";
  const std::string grouping =
      " from BillWiseProfit B Join SalesTemp S On B.BillNo=S.BillNo group by "
      "B.BillNo,S.BillDate,S.BillTime,S.Counter,S.Staff order by ";
  switch (order) {
    case Order::bill:
      return head + grouping + "B.BillNo";
    case Order::percent_rising:
      return head + " as Prfot" + grouping + "Prfot";
    case Order::percent_falling:
      return head + " as Prfot" + grouping + "Prfot Desc";
  }
  return {};
}

void frmBillWiseProfit::list(Order order) {
  app().FromDate = picked_date("DTP1");
  app().ToDate = picked_date("DTP2", "DD/MMM/YYYY");
  empty_grid(grid());
  BusyPointer busy(app().display);
  stage_lines(order);
  OpenRs(app(), list_sql(order));
  FillGrid();
  CloseRs(app());
  RowHeading();
  busy.end();
  TotalAll();
  profit_list::write_total_profit(form(), grid());
  ChangeCellColour();
  profit_list::write_average(app(), form(), grid(), {9, 0, "tMargin", "#######0.00", "######0.00"});
}

void frmBillWiseProfit::stage_lines(Order order) {
  Transaction clearing(*app().Con);
  app().Con->execute("Delete from BillWiseProfit");
  clearing.commit();
  Transaction filling(*app().Con);
  profit_list::execute_profit(app(), staging_sql(app().FromDate, app().ToDate, order));
  filling.commit();
}

// A bill in the columns of an item: its number stands as the code, and its day, time, counter and
// staff as the name. It has no rates and no quantity of its own, so those stay empty.
void frmBillWiseProfit::preview() {
  if (refuse_reversed("DTP1", "DTP2", "The Start Date Is Greater Than The End Date",
                      Icon::critical))
    return;
  take_period();
  profit_list::preview(app(), grid(), [this](int row) {
    const auto cell = [&](int col) { return quoted_cell(grid(), row, col); };
    const std::string bill = cell(2) + "  " + cell(3) + "  C" + cell(4) + "  " + cell(5);
    return bare_cells(grid(), row, 0, 1) + ",'" + bill + "',null,null,null,null," +
           bare_cells(grid(), row, 6, 8);
  });
}

}  // namespace tela
