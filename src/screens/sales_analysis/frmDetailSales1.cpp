#include "screens/sales_analysis/frmDetailSales1.h"

#include <array>
#include <utility>

#include "platform/text/number_text.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

constexpr int kColumns = 10;
constexpr const char* kMoney = "########0.00";
constexpr const char* kTotal = "#######0.00";

/// The boxes below a grid, from the total on.
using Boxes = std::array<std::string, 6>;
const Boxes kTillBoxes = {"tTotalAmount", "Text1", "Text2", "Text3", "tMobilePay", "Text4"};
const Boxes kCreditBoxes = {"Text9", "Text5", "Text6", "Text7", "tCrMobilePay", "Text8"};

Control headed_grid(const std::string& name, const std::string& heading) {
  Control made = grid(name, kColumns);
  made.caption = heading;
  return made;
}

std::vector<Control> total_boxes(const Boxes& boxes) {
  return tab_order(total_box(boxes[0], " TOTAL AMOUNT"), total_box(boxes[1], " TOTAL CASH"),
                   total_box(boxes[2], " TOTAL CARD"), total_box(boxes[3], " TOTAL PASS"),
                   total_box(boxes[4], "MOBILE PAY"), total_box(boxes[5], " TOTAL POINTS"));
}

std::vector<Control> controls() {
  std::vector<Control> all =
      tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                button("cmdView", "&View"), button("cmdRefresh", "&Refresh"),
                button("cmdClose", "&Close"), total_box("tCreditPaid", " TOTAL Cr PAYMENTS"),
                headed_grid("MSHF", "CASH SALES and POINTS SALES"));
  append(all, total_boxes(kTillBoxes));
  all.push_back(headed_grid("MSHF1", "CREDIT SALES and HOME DELIVERY"));
  append(all, total_boxes(kCreditBoxes));
  return all;
}

/// `cash` is the field of the cash column; card, pass, mobile payment and points follow it.
GridColumns grid_columns(const Boxes& boxes, int cash) {
  return {
      {"S.No", 800, row_number()},
      {"COUNTER", 1200, trimmed_field(0)},
      {"AMOUNT", 1200, number_field(1, kMoney)},
      {"Discount", 1200, number_field(2, kMoney)},
      {"TOTAL", 1200, number_field(3, kMoney), {boxes[0], kTotal}},
      {"CASH", 1200, number_field(cash, kMoney), {boxes[1], kTotal}},
      {"CARD", 1200, number_field(cash + 1, kMoney), {boxes[2], kTotal}},
      {"PASS", 1200, number_field(cash + 2, kMoney), {boxes[3], kTotal}},
      {"Mobile Pay", 1200, number_field(cash + 3, kMoney), {boxes[4], kTotal}},
      {"POINTS", 1200, number_field(cash + 4, kMoney), {boxes[5], kTotal}},
  };
}

GridLook look(std::string grid) {
  return {.name = std::move(grid), .size = FillSize::blank_row_behind, .blank_row_counts = true};
}

/// The statement of a grid. `stored_cash` is its field for the cash that bills store, if it shows
/// that in place of the derived cash.
std::string by_counter(const std::string& stored_cash, const Period& period,
                       const std::string& of_types) {
  return "select Counter,SUM(netamount)'NET AMT',SUM(DiscAmount)'Discount',SUM(Total),"
         "SUM(Total-(CardPaid+MealsPaid+MobilePay+PointsUsed))," +
         stored_cash +
         "SUM(CardPaid),SUM(MealsPaid),sum(MobilePay),SUM(PointsUsed) from salestemp where "
         "billdate>=" +
         sql_text(period.from) + " AND BILLDATE<=" + sql_text(period.to) + of_types +
         " GROUP BY Counter ORDER by counter";
}

}  // namespace

frmDetailSales1::frmDetailSales1(AppState& app)
    : Screen(app, "frmDetailSales1", "DETAIL SALES REPORT - COUNTER WISE", controls()),
      till_(form(), grid_columns(kTillBoxes, 4), look("MSHF")),
      credit_(form(), grid_columns(kCreditBoxes, 5), look("MSHF1")) {
  key_walk({"DTP1", "DTP2", "cmdView"});
  on_press("cmdView", [this] { view(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

std::string frmDetailSales1::till_sql(const Period& period) {
  return by_counter("", period, " and BillType  Not in ('CREDIT BILL','HOME DELIVERY')");
}

std::string frmDetailSales1::credit_sql(const Period& period) {
  return by_counter("SUM(CashPaid),", period,
                    " AND  BillType NOT IN ('CASH/CREDIT','POINTS SALES')");
}

std::string frmDetailSales1::payments_sql(const Period& period) {
  return "Select sum(Amount) from Cust_Trans where TransDate>=" + sql_text(period.from) +
         " AND TransDate<=" + sql_text(period.to) + " AND TransType=2";
}

void frmDetailSales1::view() {
  const Period period = take_period();
  if (refused(reversed("DTP1", "DTP2", "The From date is Gretater Than the To Date"))) return;
  till_.show(app(), till_sql(period));
  credit_.show(app(), credit_sql(period));
  show_payments(period);
}

// Payments are stored negative. The box shows them as a plain number: 1200.5.
void frmDetailSales1::show_payments(const Period& period) {
  form().set_text("tCreditPaid", "0.00");
  const Value sum = OpenRs(app(), payments_sql(period)).field(0);
  CloseRs(app());
  if (is_null(sum)) return;
  form().set_text("tCreditPaid", plain_number(-Val(format_number(field_number(sum), kMoney))));
}

}  // namespace tela
