// The family of bill lists: one row a bill, with the way it was paid, its totals, a double click
// that opens the bill, and a preview. A screen of the family is one value that says which bills it
// lists, in which orders, and what it stages.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "report_framework/staging.h"
#include "shell/screen.h"

namespace tela {

/// What the user asked for, as statements take it.
struct BillInputs {
  Period period = {};                       ///< a list of one day has it in both ends
  std::optional<std::string> counter = {};  ///< nothing: all counters
  std::string filter = {};                  ///< the text of `Combo1`, trimmed
  std::string first = {};                   ///< the lower bound, the text of `Text1`
  std::string last = {};                    ///< the upper bound, the text of `Text2`
};

/// A button that lists the bills, and the end of its statement.
struct BillOrder {
  std::string button;
  std::string caption;
  std::string order_by;
};

/// Where the labels "START BILL" and "END BILL" come from.
enum class BillRange {
  none,      ///< the screen has no such labels
  of_grid,   ///< the first and the last row, whatever the order
  of_query,  ///< the lowest and the highest number of the same bills, by a statement of its own
};

/// What the preview of a bill list stages and opens, and what stands ahead of it.
struct BillPreview {
  std::string button = "cmdprint";
  std::vector<Refusal> refusals = {};
  std::string question = {};  ///< empty: the preview does not ask
  bool asks_last = false;     ///< it asks when the rows are staged already
  std::string clear;          ///< see Staging, as the next two
  std::string insert;
  StagingTransactions transactions = StagingTransactions::one;
  /// The values of one row of the table.
  std::function<std::vector<std::string>(const BillInputs&, const GridRow&)> values;
  std::string report_file;
  std::string report_query;
};

/// What a screen of the family is, apart from the family.
struct BillList {
  std::string screen;
  std::string caption;

  std::vector<Control> inputs;    ///< in tab order; its pickers are the period
  std::vector<std::string> walk;  ///< Enter goes from each to the next
  std::string enter_lists = {};   ///< the input in which Enter lists at once
  bool bounded = false;           ///< `Text1` and `Text2` are inputs; Up in the second goes back
  int counters = 0;               ///< how many counters `Combo1` offers; 0: it offers none
  std::string list_sql = {};      ///< what `Combo1` offers instead
  std::vector<BillOrder> orders;  ///< in tab order; the first is View
  std::vector<Control> buttons;   ///< the others: preview, refresh, close

  std::vector<Refusal> refusals = {};  ///< ahead of a listing
  bool empties_first = false;          ///< a refused listing leaves an empty grid
  bool long_run = false;               ///< shows the busy pointer
  std::string select;                  ///< the statement up to its condition
  std::function<std::string(const BillInputs&)> condition;
  int most_rows = 0;         ///< the longest list that is shown; 0: no limit
  std::string failure = {};  ///< what a failed listing says; empty: the failure's own words

  bool count_label = true;  ///< "TOTAL BILLS "
  BillRange range = BillRange::of_grid;
  /// The condition of the statement for the range, where it is not `condition`. `order` is the
  /// position of the pressed button among `orders`.
  std::function<std::string(const BillInputs&, std::size_t order)> range_condition = {};
  /// The boxes for cash, card, pass and points.
  std::array<std::string, 4> boxes = {"Text1", "Text2", "Text3", "Text4"};
  std::string mobile_pay_label = " TOTAL MOBILE PAY";
  std::optional<int> counted_by = {};  ///< see GridLook

  BillPreview preview;
};

class BillListReport : public Screen {
 public:
  BillListReport(AppState& app, BillList list);

  /// The statement of the button at `order`.
  static std::string sql(const BillList& list, const BillInputs& inputs, std::size_t order = 0);
  /// The lowest and the highest bill number of the same bills.
  static std::string range_sql(const BillList& list, const BillInputs& inputs,
                               std::size_t order = 0);

 private:
  void fill_lists() override;
  void list(std::size_t order);
  void show(std::size_t order);
  void write_labels(const Recordset& rs);
  void write_range(const BillInputs& inputs, std::size_t order);
  void preview();
  BillInputs take_inputs();

  BillList list_;
  ReportGrid grid_;
};

// What sisters share word for word.

/// The payment split of a bill in SQL, up to the condition. Of a bill paid at the till the cash
/// part is not stored but derived: what the bill came to, less the four other kinds of payment.
std::string split_select();
/// The same with plain numbers for all amounts and `cash` for the cash part, up to the condition.
std::string plain_select(const std::string& cash);
/// The cash part of a bill paid at the till.
inline constexpr const char* kDerivedCash = "Total-(CardPaid+MealsPaid+MobilePay+PointsUsed)";
/// " and" the bill was paid at the till, neither on credit nor at the door.
inline constexpr const char* kPaidAtTheTill =
    " and BillType Not in ('CREDIT BILL','HOME DELIVERY')";
/// "billdate>='from' AND BILLDATE<='to'".
std::string in_period(const Period& period);
/// " AND counter=n", or nothing for all counters.
std::string of_counter(const BillInputs& inputs);
/// What the staging tables of the cash lists hold of a row: its number, the bill, its day and time,
/// and the columns up to the cash.
std::string cash_values(const GridRow& row);
/// The preview by way of `SalesPrint`, without a question.
BillPreview sales_print(std::string button);

// The screens.

BillList frmDailyS_R();
BillList frmmonthlySR();
BillList frmDailyCashsales();
BillList frmMonthlyCashSales();
BillList frmMonthlyCreditSales();
BillList fBillToBill();
BillList frmSalesByValue();
BillList frmUserReport();

}  // namespace tela
