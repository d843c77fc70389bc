#include "screens/bill_sales/bill_list.h"

#include "platform/text/number_text.h"
#include "shell/database_gateway.h"

namespace tela::bill_list {

GridColumns columns() {
  const std::string money = "########0.00";
  const std::string paid = "#########0.00";
  const std::string total = "#######0.00";
  return {
      {"BILL NO", 900, field(0)},
      {"BILL DATE", 1200, date_field(1, "DD/MM/YYYY")},
      {"TIME", 1200, time_field(2, "HH:MM AM/PM")},
      {"AMOUNT", 1200, val_field(3, money)},
      {"Discount", 1200, val_field(4, money)},
      {"TOTAL", 1100, val_field(5, money), {"tTotalAmount", total}},
      {"CASH", 1200, val_field(6, money), {"Text1", total}},
      {"CARD", 1100, number_field(7, paid), {"Text2", total}},
      {"PASS", 1100, number_field(8, paid), {"Text3", total}},
      {"Mobile Pay", 1200, number_field(9, paid), {"tMobilePay", total}},
      {"POINTS", 1100, number_field(10, paid), {"Text4", total}},
  };
}

void add_results(std::vector<Control>& controls, const std::string& mobile_pay_label) {
  controls.push_back(label("lTotalBills", "TOTAL BILLS "));
  controls.push_back(label("lStart", "START BILL"));
  controls.push_back(label("lEnd", "END BILL"));
  controls.push_back(total_box("tTotalAmount", " TOTAL AMOUNT"));
  controls.push_back(total_box("Text1", " TOTAL CASH"));
  controls.push_back(total_box("Text2", " TOTAL CARD"));
  controls.push_back(total_box("Text3", " TOTAL PASS"));
  controls.push_back(total_box("tMobilePay", mobile_pay_label));
  controls.push_back(total_box("Text4", " TOTAL POINTS"));
}

Staging staging(const Grid& grid, const Period& period) {
  const auto insert = [&grid, period](int row) -> std::string {
    if (Val(grid.TextMatrix(row, 0)) <= 0) return {};
    return "Insert into SalesPrint values('" + period.from + "','" + period.to + "','" +
           sql_quoted(period.filter) + "'," + grid.TextMatrix(row, 0) + ",'" +
           date_cell(grid, row, 1, "DD/MMM/YYYY") + "'," + bare_cells(grid, row, 3, 10) + ")";
  };
  return {"Delete from SalesPrint", insert};
}

}  // namespace tela::bill_list
