// The family of profit lists: rows of what was sold in a period with their profit, measured on
// purchase value; three orders, totals, an average percentage, and one preview. A screen of the
// family states its rows and how the lines behind them are staged.
#pragma once

#include <functional>
#include <string>

#include "report_framework/report_grid.h"
#include "report_framework/staging.h"
#include "shell/screen.h"

namespace tela {

/// The orders of a profit list: by its first key, or by percentage.
enum class ProfitOrder { key, percent_rising, percent_falling };

/// A row's values of `MonthlyProfit` from position 3 on.
using StagedProfit = std::function<std::vector<std::string>(const GridRow&)>;

/// What a screen of the family is, apart from the family.
struct ProfitDefinition {
  std::string screen;
  std::string caption;
  std::vector<Control> filters;  ///< ahead of the period
  std::vector<Control> results;  ///< behind the totals
  GridColumns columns;           ///< two of them total into `tTotalSales` and `tTotalPurchase`
  int percent_column = 0;        ///< the last column, which the average is taken of
  std::function<std::string(ProfitOrder)> list_sql;
  StagedProfit staged;
};

class ProfitReport : public Screen {
 protected:
  ProfitReport(AppState& app, ProfitDefinition definition);

  /// Whether the listing may start; a screen with a filter may refuse.
  virtual bool may_list(ProfitOrder) { return true; }
  /// Stages the lines of the period, calls `list`, and takes away what must not stay.
  virtual void with_staged_lines(const Period& period, ProfitOrder order,
                                 const std::function<void()>& list) = 0;

 private:
  void list(ProfitOrder order);
  void write_totals();
  void preview();

  int percent_column_;
  std::function<std::string(ProfitOrder)> list_sql_;
  StagedProfit staged_;
  ReportGrid grid_;
};

/// Writes "TOTAL PROFIT", what the two totals of the grid leave between them.
void write_total_profit(Form& form, const ReportGrid& grid);

/// Stages the grid's numbered rows in `MonthlyProfit` under the period and opens their preview.
void preview_profit(AppState& app, const ReportGrid& grid, const Period& period,
                    const StagedProfit& staged);

/// What a preview of profit says when its period is reversed.
inline constexpr const char* kReversedProfitPeriod = "The Start Date Is Greater Than The End Date";

/// What the box with the average percentage says about itself.
inline constexpr const char* kAverageHint =
    "The mean of the rows' percentages: every row counts the same, however much was sold. It is "
    "neither the profit on all sales nor on all purchases.";

/// A plain average of a grid column.
struct ColumnAverage {
  int column = 0;
  int numbered = 0;  ///< the column whose number must be above 0 for a row to count
  std::string box;
  std::string sum_mask;  ///< rounds each step of the sum
  std::string box_mask;
};

/// Writes the average into its box and the number of the last row counted into `tTotalRows`.
/// Without a row both stay as they are.
void write_average(AppState& app, Form& form, const ReportGrid& grid, const ColumnAverage& average);

/// The percentage of a bill line in SQL: a returned line counts with its margin negated, goods
/// without a purchase rate count as 100 when sold and as -100 when returned. `alias` ("S." or
/// nothing) stands before each column, `hundred` is the multiplier as the statement writes it.
std::string percent_case(const std::string& alias, const std::string& hundred);

/// Executes a statement that works with that percentage. A line of quantity 0 makes the database
/// refuse it; the failure then names the cause.
void execute_profit(AppState& app, const std::string& sql);

}  // namespace tela
