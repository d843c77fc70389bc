#include "screens/profit/profit_list.h"

#include <stdexcept>

#include "platform/text/number_text.h"
#include "report_framework/report_preview.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela::profit_list {

namespace {
const std::string kRate = "######0.00";
const std::string kTotal = "#######0.00";
}  // namespace

GridColumns item_columns(const std::string& percent_mask) {
  return {
      {"S No", 800, row_number()},
      {"CODE", 800, field(0)},
      {"ITEM NAME", 3600, trimmed_field(1)},
      {"MRP", 1000, number_field(2, kRate)},
      {"SALE RATE", 1000, number_field(3, kRate)},
      {"PurRate", 1000, number_field(4, kRate)},
      {"QTY", 1000, number_field(5, kRate)},
      {"AMOUNT", 1000, number_field(6, kRate), {"tTotalSales", kTotal}},
      {"Pur_Amt", 1000, number_field(7, kRate), {"tTotalPurchase", kTotal}},
      {"PROFIT", 1000, number_field(8, "#########0.00")},
      {"PROFIT %", 1000, number_field(9, percent_mask)},
  };
}

void add_totals(std::vector<Control>& controls) {
  controls.push_back(total_box("tTotalSales", "TOTAL SALE RATE"));
  controls.push_back(total_box("tTotalPurchase", "TOTAL PURCHASE RATE"));
  controls.push_back(total_box("tTotalProfit", "TOTAL PROFIT"));
}

void write_total_profit(Form& form, const Grid& grid) {
  const double profit = Val(form.text("tTotalSales")) - Val(form.text("tTotalPurchase"));
  form.set_text("tTotalProfit", grid.Rows() > 1 ? format_number(profit, "######0.00") : "0");
}

void write_average(AppState& app, Form& form, const Grid& grid, const Average& average) {
  form.set_text(average.box, "0");
  app.ProfitSum = 0;
  int rows = 0;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (Val(grid.TextMatrix(row, average.numbered)) <= 0) continue;
    const double cell = Val(grid.TextMatrix(row, average.column));
    app.ProfitSum = Val(format_number(app.ProfitSum + cell, average.sum_mask));
    rows = row;
  }
  form.set_text("tTotalRows", std::to_string(rows));
  if (rows > 0) form.set_text(average.box, format_number(app.ProfitSum / rows, average.box_mask));
}

void preview(AppState& app, const Grid& grid,
             const std::function<std::string(int row)>& staging_row) {
  const auto insert = [&](int row) -> std::string {
    if (Val(grid.TextMatrix(row, 0)) <= 0) return {};
    return "Insert into MonthlyProfit values('" + app.FromDate + "','" + app.ToDate + "'," +
           staging_row(row) + ")";
  };
  stage_rows(app, grid, {"Delete from MonthlyProfit", insert}, StagingTransactions::one);
  open_preview(app, "MonthlyProfitPri.rpt", "SELECT * FROM MonthlyProfit");
}

std::string percent_case(const std::string& alias, const std::string& hundred) {
  const std::string quantity = alias + "qty";
  const std::string profit = "((" + quantity + " * " + alias + "salerate)-(" + quantity + " * " +
                             alias + "purrate))*" + hundred + "/(" + quantity + " * " + alias +
                             "purrate)";
  return "(Case when " + alias + "Qty<0 and " + alias + "PurRate>0 Then " + profit + "*-1 when " +
         alias + "Qty<0 and " + alias + "PurRate=0 then -100 when " + alias + "Qty>0 and " + alias +
         "purrate=0 then 100 else " + profit + " end) As ProfitPercent";
}

void execute_profit(AppState& app, const std::string& sql) {
  try {
    app.Con->execute(sql);
  } catch (const DatabaseError& failure) {
    const bool by_zero =
        std::string_view(failure.what()).find("ivide by zero") != std::string_view::npos;
    if (!by_zero) throw;
    throw std::runtime_error(
        "A bill line of this period has the quantity 0, so its profit percentage cannot be worked "
        "out. Please correct that line first. (" +
        std::string(failure.what()) + ")");
  }
}

}  // namespace tela::profit_list
