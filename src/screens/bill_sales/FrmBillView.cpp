#include "screens/bill_sales/FrmBillView.h"

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "report_framework/bill_reprint.h"
#include "report_framework/row_boxes.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

const std::string kMoney = "########0.00";

// In the order in which the screen reads them.
const std::vector<RowBox>& header_boxes() {
  static const std::vector<RowBox> kBoxes = {
      {"tBillNo", "BILL No.", trimmed_field(0)},
      {"tDate", "BILL DATE", date_field(1, "DD/MM/YYYY")},
      {"tTime", "TIME", time_field(2, "HH:MM:SS AM/PM")},
      {"tCounterNo", "COUNTER", field(3)},
      {"tUser", "USER", trimmed_field(4)},
      {"tCustomerCode", "CUSTOMER ID", field(5)},
      {"tBillTo", "TO ", trimmed_field(6)},
      {"tOpPoints", "OPENING POINTS", number_field(7, kMoney)},
      {"tBillPoints", "BILL POINTS", number_field(8, kMoney)},
      {"tClPoints", "CLOSING POINTS", number_field(9, kMoney)},
      {"tDiscount", "DISCOUNT", number_field(10, kMoney)},
      {"tTotal", "TOTAL", number_field(11, kMoney)},
      {"tCashPaid", "CASH PAID ", number_field(12, kMoney)},
      {"tCardPaid", "CREDIT CARD ", number_field(13, kMoney)},
      {"tMealsPass", "MEALS PASS", number_field(14, kMoney)},
      {"tMobilePay", "MOBILE PAYMENT", number_field(15, kMoney)},
      {"tPointsUsed", "POINTS USED", number_field(16, kMoney)},
      {"tCashReturned", "CASH CHANGE", number_field(17, kMoney)},
      {"tBillType", "BILL TYPE  ", trimmed_field(19)},
  };
  return kBoxes;
}

const std::vector<std::string> kPayments = {"tCashPaid", "tCardPaid", "tMealsPass", "tMobilePay",
                                            "tPointsUsed"};

GridColumns grid_columns() {
  return {
      {"S.No.", 500, row_number()},
      {"CODE", 1200, field(0)},
      {"ITEM NAME", 4800, field(1)},
      {"MRP", 1200, number_field(2, kMoney)},
      {"Sale Rate", 1200, number_field(3, kMoney)},
      {"QTY", 1000, number_field(4, kMoney)},
      {"NET AMT", 1200, number_field(5, kMoney)},
  };
}

std::vector<Control> header_controls() {
  std::vector<Control> all;
  for (const RowBox& box : header_boxes()) all.push_back(text_box(box.name, box.label));
  all.front().numeric_only = true;  // the bill number
  all.front().select_on_focus = true;
  return all;
}

std::vector<Control> controls() {
  std::vector<Control> all =
      tab_order(text_box("tSearch", "SEARCH").numeric(), button("cmdView", "&View"),
                button("cmdNext", "&NEXT BILL"), button("CmdPrevious", "PREVIOUS "),
                button("cmdprint", "&Print"), button("cmdRefresh", "&REFRESH"),
                button("cmdClose", "E&XIT"), grid("MSHF", 7, 1));
  append(all, group("BILL", header_controls()));
  append(all,
         group("SUMS",
               tab_order(text_box("tTotalPaid", "TOTAL PAID "), text_box("tTotalQty", "TOTAL QTY"),
                         text_box("tMrpTotal", "MRP TOTAL"), text_box("tSaved", "SAVED"))));
  return all;
}

}  // namespace

FrmBillView::FrmBillView(AppState& app)
    : Screen(app, "FrmBillView", "SPECIAL BILL VIEW", controls()), grid_(form(), grid_columns()) {
  on_key("tBillNo", Key::enter, [this] { focus("cmdView"); });
  on_press("cmdView", [this] { view(); });
  on_press("cmdNext", [this] { step(1); });
  on_press("CmdPrevious", [this] { step(-1); });
  on_press("cmdprint", [this] { print(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

std::string FrmBillView::lines_sql(const std::string& bill) {
  return "Select icode,iname,mrp,saleRate,sum(qty),sum(qty) * saleRate from sales where billno =" +
         sql_number(bill) + " group by icode,iname,mrp,saleRate order by iname";
}

std::string FrmBillView::header_sql(const std::string& bill) {
  return "Select billno,billdate,BillTime,Counter,Staff,CustCode,CustName,OpPoints,BillPoints,"
         "ClPoints,DiscAmount,Total,CashPaid,CardPaid,MealsPaid,MobilePay,PointsUsed,cashret,"
         "uhsaved,BillType from salesTemp where billno=" +
         sql_number(bill);
}

void FrmBillView::load() {
  Screen::load();
  const std::string bill = std::to_string(app().SaleBillNo);
  form().set_text("tSearch", bill);
  form().set_text("tBillNo", bill);
  read_bill();
}

void FrmBillView::view() {
  if (refused(blank("tSearch", "Please Enter The Bill No"))) return;
  guarded([this] { read_bill(); },
          [this](const std::runtime_error&) {
            tell("No Bill No Found", Icon::critical);
            ClearAll();
          });
}

void FrmBillView::read_bill() {
  const std::string bill = form().text("tSearch");
  grid_.show(app(), lines_sql(bill));
  OpenRs(app(), header_sql(bill));
  show_header();
  CloseRs(app());
  total_lines();
}

// A bill number that does not exist is no failure: its boxes are blank. A gap in the numbers is
// walked over that way.
void FrmBillView::show_header() {
  if (app().Rs->eof()) return ClearAll();
  fill_boxes(form(), header_boxes(), *app().Rs);
}

void FrmBillView::total_lines() {
  const std::string mask = "##########0.00";
  std::string quantity = "0";
  std::string mrp_total = "0";
  for (int row = 1; row < grid_.cells().Rows(); ++row) {
    const double sold = grid_.number(row, 5);
    quantity = format_number(Val(quantity) + sold, mask);
    mrp_total = format_number(Val(mrp_total) + grid_.number(row, 3) * sold, mask);
  }
  form().set_text("tTotalQty", quantity);
  form().set_text("tMrpTotal", mrp_total);
  form().set_text("tSaved",
                  format_number(Val(mrp_total) - Val(form().text("tTotal")), "#########0.00"));
  double paid = 0;
  for (const std::string& payment : kPayments) paid += Val(form().text(payment));
  form().set_text("tTotalPaid", format_number(paid, "######0.00"));
}

void FrmBillView::step(int by) {
  form().set_text("tSearch", plain_number(Val(form().text("tSearch")) + by));
  form().set_text("tBillNo", form().text("tSearch"));
  view();
}

void FrmBillView::print() {
  if (!ask("DO YOU WANT TO PRINT THE LAST BILL- (OK To PRINT, Cancel To EXIT) ")) return;
  reprint_bill(app(), form());
}

void FrmBillView::ClearAll() {
  for (const RowBox& box : header_boxes())
    if (box.name != "tBillNo") form().set_text(box.name, "");
}

}  // namespace tela
