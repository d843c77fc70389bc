#include "report_framework/bill_printing.h"

#include <initializer_list>
#include <string_view>

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "platform/text/utf8.h"
#include "report_framework/bill_stream.h"
#include "shell/text_helpers.h"

namespace tela {
namespace {

using namespace std::string_view_literals;

constexpr int kReceiptColumns = 48;
constexpr int kWideDashes = 70;

// ESC ! n chooses the print mode of ESC/POS: 0, 8, 16 and 48.
constexpr Control kNormal{"\x1B!\x00"sv};
constexpr Control kEmphasised{"\x1B!\x08"sv};
constexpr Control kDoubleHeight{"\x1B!\x10"sv};
constexpr Control kDoubleSize{"\x1B!\x30"sv};
constexpr Control kCut{"\x1DV\x30\x00"sv};  // GS V 48 0
constexpr Control kLineFeed{"\n"sv};
constexpr Control kDoubleWidthLine{"\x0E"sv};  // SO, until the line ends
constexpr Control kNormalPitch{"\x12"sv};      // DC2

// A kind of payment that has a line of its own when something was paid with it.
struct PaymentLine {
  std::string_view caption;
  std::string PrintedBill::*box;
  int receipt_width;
};

constexpr int kWidePaymentWidth = 10;
constexpr PaymentLine kPayments[] = {{"AMOUNT PAID    ", &PrintedBill::tCashPaid, 8},
                                     {"CREDIT CARD    ", &PrintedBill::tCardPaid, 10},
                                     {"MEALS PASS    ", &PrintedBill::tMealsPass, 10},
                                     {"POINTS USED   ", &PrintedBill::tPointsUsed, 10}};
constexpr PaymentLine kChange = {"AMT RETURNED   ", &PrintedBill::tCashReturned, 10};

std::string dashes(int count) {
  return std::string(static_cast<std::size_t>(count), '-');
}

bool above_zero(std::string_view text) {
  return Val(text) > 0;
}

bool has_more_than_one_character(std::string_view text) {
  return character_count(text) > 1;
}

std::string date_text(const PrintedBill& bill) {
  const auto date = read_day_first(bill.tDate);
  return date ? format_date(*date, "DD/mm/yyyy") : bill.tDate;
}

std::string time_text(const PrintedBill& bill) {
  const auto time = read_time(bill.tTime);
  return time ? format_time(*time, "hh:mm AM/PM") : bill.tTime;
}

std::vector<std::string_view> trailer_lines(const BillPrintSettings& settings) {
  std::vector<std::string_view> lines;
  for (const std::string_view line :
       {std::string_view(settings.BillLine1), std::string_view(settings.BillLine2),
        std::string_view(settings.BillLine3)})
    if (has_more_than_one_character(line)) lines.push_back(line);
  return lines;
}

// Change is money handed back at the till, which these two bill types alone know on a receipt.
bool receipt_shows_change(const PrintedBill& bill) {
  const std::string_view type = trimmed(bill.tBillType);
  return type == "CASH/CREDIT" || type == "POINTS SALES";
}

void receipt_head(BillStream& out, const PrintedBill& bill) {
  out.line(kDoubleSize, " TELA MINI SUPER MARKET");
  out.line(kEmphasised,
           CenterPad("No.38B, MARVOPALLI STREET, SUNVALE TOWN - 99001", kReceiptColumns));
  out.line(kEmphasised, CenterPad("CELL : 9000012345", kReceiptColumns));
  out.line(kEmphasised);
  out.line("Date    : ", date_text(bill), "              Time:", time_text(bill));
  out.line("Bill No.: ", trimmed(bill.tBillNo), Tab{28}, "       COUNTER No. ", bill.tCounterNo);
  if (above_zero(bill.tCustomerCode))
    out.line("Customer : ", bill.tCustomerCode, " , ", trimmed(bill.tBillTo));
  else if (has_more_than_one_character(bill.tBillTo))
    out.line("TO :", trimmed(bill.tBillTo));
}

void receipt_rows(BillStream& out, const PrintedBill& bill) {
  out.line(kDoubleHeight, dashes(kReceiptColumns));
  out.line(kEmphasised, "Product Name             Mrp   Rate  Qty  Amount");
  out.line(kDoubleHeight, dashes(kReceiptColumns));
  for (const PrintedBill::Row& row : bill.rows) {
    if (!above_zero(row.code)) continue;
    out.line(kNormal, PadRight(row.name, 21), PadLeft(format_number(row.mrp, "####0.00"), 8),
             PadLeft(format_number(row.sale_rate, "####0.00"), 8),
             PadLeft(format_number(row.qty, "#0"), 3),
             PadLeft(format_number(Val(row.net_amount), "#####0.00"), 8));
  }
}

void receipt_payment(BillStream& out, const PrintedBill& bill, const PaymentLine& payment) {
  const std::string& text = bill.*payment.box;
  if (above_zero(text))
    out.line(kEmphasised, payment.caption, PadRight(text, payment.receipt_width));
}

void receipt_totals(BillStream& out, const PrintedBill& bill) {
  out.line(Tab{28}, dashes(21));
  out.line(kDoubleHeight, Tab{30}, "TOTAL Rs. ", PadLeft(bill.tTotal, 10));
  out.line(kDoubleHeight, dashes(kReceiptColumns));
  out.line(kDoubleHeight, " TOTAL QTY : ", bill.tTotalQty);
  for (const PaymentLine& payment : kPayments) receipt_payment(out, bill, payment);
  if (receipt_shows_change(bill)) receipt_payment(out, bill, kChange);
  if (above_zero(bill.tSaved))
    out.line(kDoubleHeight, "YOU HAVE SAVED Rs. ", kDoubleSize, PadRight(bill.tSaved, 10));
}

void wide_head(BillStream& out, const PrintedBill& bill) {
  out.line(kNormalPitch);
  out.line(kDoubleWidthLine, "     TELA MINI SUPER MARKET ");
  out.line(Tab{8}, "No.61, ZORBA TEMPLE ROAD, KELPAVALLAM, SUNVALE - 54");
  out.line(Tab{8}, CenterPad("CELL : 9000054321", 54));
  out.line(Tab{5}, "Date    :", date_text(bill),
           "                               Time: ", time_text(bill));
  out.line(Tab{5}, "Bill No.: ", bill.tBillNo, " ", Tab{53}, "COUNTER No. ", bill.tCounterNo);
  if (Val(bill.tCustomerCode) < 1 && has_more_than_one_character(bill.tBillTo))
    out.line("TO : ", trimmed(bill.tBillTo));
}

void wide_rows(BillStream& out, const PrintedBill& bill) {
  out.line(Tab{5}, dashes(kWideDashes));
  out.line(Tab{5}, "S.No.  Product Name", Tab{41}, "M.R.P.", Tab{51}, "RATE", Tab{59}, "QTY",
           Tab{66}, "Amount");
  out.line(Tab{5}, dashes(kWideDashes));
  for (std::size_t i = 0; i < bill.rows.size(); ++i) {
    const PrintedBill::Row& row = bill.rows[i];
    if (!above_zero(row.code)) continue;
    out.line(Tab{5}, PadRight(std::to_string(i + 1), 3), " ", PadRight(row.name, 31),
             PadLeft(row.mrp, 8), PadLeft(row.sale_rate, 8),
             PadLeft(format_number(row.qty, "##0.000"), 9),
             PadLeft(format_number(Val(row.net_amount), "#######0.00"), 9));
  }
}

void wide_payment(BillStream& out, const PrintedBill& bill, const PaymentLine& payment) {
  const std::string& text = bill.*payment.box;
  if (above_zero(text)) out.line(Tab{5}, payment.caption, PadRight(text, kWidePaymentWidth));
}

void wide_totals(BillStream& out, const PrintedBill& bill) {
  out.line(Tab{54}, dashes(21));
  out.line(Tab{43}, "TOTAL Rs.", kDoubleWidthLine, PadLeft(bill.tTotal, 10));
  out.line(dashes(kWideDashes));
  out.line("TOTAL QTY : ", kDoubleWidthLine, PadRight(bill.tTotalQty, 8));
  for (const PaymentLine& payment : kPayments) wide_payment(out, bill, payment);
  wide_payment(out, bill, kChange);
  if (above_zero(bill.tSaved))
    out.line(Tab{5}, kDoubleWidthLine, "YOU HAVE SAVED Rs.", PadRight(bill.tSaved, 10));
}

}  // namespace

std::string receipt_layout(const PrintedBill& bill, const BillPrintSettings& settings) {
  BillStream out;
  out.empty_lines(settings.PrintTop);
  receipt_head(out, bill);
  receipt_rows(out, bill);
  receipt_totals(out, bill);
  out.line(kEmphasised);
  for (const std::string_view line : trailer_lines(settings)) out.line(CenterPad(line, 45));
  out.empty_lines(settings.PrintEnd);
  out.put(kLineFeed, kCut);
  out.line(kEmphasised);
  return out.bytes();
}

std::string wide_layout(const PrintedBill& bill, const BillPrintSettings& settings) {
  BillStream out;
  wide_head(out, bill);
  wide_rows(out, bill);
  wide_totals(out, bill);
  out.empty_lines(1);
  for (const std::string_view line : trailer_lines(settings))
    out.line(kDoubleWidthLine, CenterPad(line, 30));
  out.empty_lines(settings.PrintEnd);
  return out.bytes();
}

std::optional<std::string> bill_bytes(int PrintNo, const PrintedBill& bill,
                                      const BillPrintSettings& settings) {
  if (PrintNo == 1) return receipt_layout(bill, settings);
  if (PrintNo == 2) return wide_layout(bill, settings);
  return std::nullopt;
}

}  // namespace tela
