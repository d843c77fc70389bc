// The family of profit lists: rows of what was sold with their profit, measured on purchase value;
// totals, an average percentage, and one preview.
#pragma once

#include <functional>
#include <string>

#include "report_framework/grid_report.h"

namespace tela::profit_list {

/// The present stock at purchase rate, of all items.
inline constexpr std::string_view kStockValueSql =
    "select str(sum(stock * purrate),12,2) from items";

/// The eleven columns of an item list, "S No" to "PROFIT %", from the fields in their order.
GridColumns item_columns(const std::string& percent_mask);

/// The boxes of the totals.
void add_totals(std::vector<Control>& controls);

/// `tTotalProfit` = `tTotalSales` minus `tTotalPurchase`; "0" for a grid without rows.
void write_total_profit(Form& form, const Grid& grid);

/// A plain average of a grid column.
struct Average {
  int column = 0;
  int numbered = 0;  ///< the column whose number must be above 0 for a row to count
  std::string box;
  std::string sum_mask;  ///< rounds each step of the sum
  std::string box_mask;
};

/// Writes the average into its box and the number of the last row counted into `tTotalRows`; both
/// show "0" without a row.
void write_average(AppState& app, Form& form, const Grid& grid, const Average& average);

/// Stages the rows that are numbered in column 0 into `MonthlyProfit`, under the period in
/// `FromDate` and `ToDate`, and opens the report. `staging_row` gives a row's values from position
/// 3 on.
void preview(AppState& app, const Grid& grid,
             const std::function<std::string(int row)>& staging_row);

/// The percentage of a bill line in SQL: a returned line counts with its margin negated, goods
/// without a purchase rate count as 100 when sold and as -100 when returned. `alias` ("S." or
/// nothing) stands before each column, `hundred` is the multiplier as the statement writes it.
std::string percent_case(const std::string& alias, const std::string& hundred);

/// Executes a statement that works with that percentage. A line of quantity 0 makes the database
/// refuse it; the failure then names the cause.
void execute_profit(AppState& app, const std::string& sql);

}  // namespace tela::profit_list
