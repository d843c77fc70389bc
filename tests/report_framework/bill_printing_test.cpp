// The printed bill, byte by byte. The streams are shown as lines in which {0}, {8}, {16} and {48}
// are the print modes of ESC !, {CUT} is GS V 48 0, and any other byte that is not plain text
// stands in hexadecimal; CR LF ends a line.
#include "report_framework/bill_printing.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <utility>

#include "report_framework/bill_stream.h"

namespace tela {
namespace {

using Lines = std::vector<std::string>;
using namespace std::string_view_literals;

std::string take_readable(std::string_view& bytes) {
  const auto take = [&bytes](std::size_t count) {
    const std::string_view taken = bytes.substr(0, count);
    bytes.remove_prefix(taken.size());
    return taken;
  };
  if (bytes.starts_with("\x1B!") && bytes.size() > 2)
    return "{" + std::to_string(static_cast<unsigned char>(take(3).back())) + "}";
  if (bytes.starts_with("\x1DV\x30\0"sv)) return take(4), "{CUT}";
  const auto byte = static_cast<unsigned char>(take(1).front());
  if (byte >= ' ' && byte < 0x7F) return {static_cast<char>(byte)};
  char hex[5];
  std::snprintf(hex, sizeof hex, "{%02X}", byte);
  return hex;
}

// What stands behind the last CR LF is a line too, unless it is nothing.
Lines readable(std::string_view bytes) {
  Lines lines;
  std::string line;
  while (!bytes.empty()) {
    if (bytes.starts_with("\r\n")) {
      lines.push_back(std::exchange(line, {}));
      bytes.remove_prefix(2);
    } else {
      line += take_readable(bytes);
    }
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

PrintedBill cash_bill() {
  PrintedBill bill;
  bill.tBillNo = "1234";
  bill.tDate = "05/01/2024";
  bill.tTime = "02:05:09 PM";
  bill.tCounterNo = "2";
  bill.tCustomerCode = "0";
  bill.tBillType = "CASH/CREDIT";
  bill.tTotal = "300.00";
  bill.tTotalQty = "3.00";
  bill.tCashPaid = "500.00";
  for (auto* box : {&bill.tCardPaid, &bill.tMealsPass, &bill.tPointsUsed}) *box = "0.00";
  bill.tCashReturned = "200.00";
  bill.tSaved = "30.00";
  bill.rows = {{"101", "BASMATI RICE 1KG", "110.00", "100.00", "2.00", "200.00"},
               {"102", "TOOR DAL", "110.00", "100.00", "1.00", "100.00"}};
  return bill;
}

const BillPrintSettings kSettings{.PrintTop = 2,
                                  .PrintEnd = 1,
                                  .BillLine1 = "THANK YOU VISIT AGAIN",
                                  .BillLine2 = "-",
                                  .BillLine3 = "GOODS ONCE SOLD"};

// The lines of a receipt from the first that starts with `start`, `count` of them.
Lines lines_from(const std::string& bytes, std::string_view start, std::size_t count) {
  const Lines lines = readable(bytes);
  Lines found;
  for (const std::string& line : lines)
    if (found.size() < count && (!found.empty() || line.starts_with(start))) found.push_back(line);
  return found;
}

const std::string kDashes48(48, '-');
const std::string kDashes70(70, '-');

TEST(ReceiptLayout, PrintsACashBill) {
  const Lines expected = {
      "",
      "",
      "{48} TELA MINI SUPER MARKET",
      "{8}No.38B, MARVOPALLI STREET, SUNVALE TOWN - 99001",
      "{8}                CELL : 9000012345",
      "{8}",
      "Date    : 05/01/2024              Time:02:05 PM",
      "Bill No.: 1234                    COUNTER No. 2",
      "{16}" + kDashes48,
      "{8}Product Name             Mrp   Rate  Qty  Amount",
      "{16}" + kDashes48,
      "{0}BASMATI RICE 1KG       110.00  100.00  2  200.00",
      "{0}TOOR DAL               110.00  100.00  1  100.00",
      "                           ---------------------",
      "{16}                          TOTAL Rs.     300.00",
      "{16}" + kDashes48,
      "{16} TOTAL QTY : 3.00",
      "{8}AMOUNT PAID    500.00  ",
      "{8}AMT RETURNED   200.00    ",
      "{16}YOU HAVE SAVED Rs. {48}30.00     ",
      "{8}",
      "            THANK YOU VISIT AGAIN",
      "               GOODS ONCE SOLD",
      "",
      "{0A}{CUT}{8}",
  };
  EXPECT_EQ(readable(receipt_layout(cash_bill(), kSettings)), expected);
}

TEST(WideLayout, PrintsACashBill) {
  const Lines expected = {
      "{12}",
      "{0E}     TELA MINI SUPER MARKET ",
      "       No.61, ZORBA TEMPLE ROAD, KELPAVALLAM, SUNVALE - 54",
      "                         CELL : 9000054321",
      "    Date    :05/01/2024                               Time: 02:05 PM",
      "    Bill No.: 1234                                  COUNTER No. 2",
      "    " + kDashes70,
      "    S.No.  Product Name                 M.R.P.    RATE    QTY    Amount",
      "    " + kDashes70,
      "    1   BASMATI RICE 1KG                 110.00  100.00    2.000   200.00",
      "    2   TOOR DAL                         110.00  100.00    1.000   100.00",
      "                                                     ---------------------",
      "                                          TOTAL Rs.{0E}    300.00",
      kDashes70,
      "TOTAL QTY : {0E}3.00    ",
      "    AMOUNT PAID    500.00    ",
      "    AMT RETURNED   200.00    ",
      "    {0E}YOU HAVE SAVED Rs.30.00     ",
      "",
      "{0E}    THANK YOU VISIT AGAIN",
      "{0E}        GOODS ONCE SOLD",
      "",
  };
  EXPECT_EQ(readable(wide_layout(cash_bill(), kSettings)), expected);
}

TEST(BillLayouts, PrintEveryKindOfPayment) {
  PrintedBill bill = cash_bill();
  bill.tBillType = " POINTS SALES ";
  bill.tCardPaid = "100.00";
  bill.tMealsPass = "50.00";
  bill.tPointsUsed = "25.50";
  EXPECT_EQ(lines_from(receipt_layout(bill, {}), "{8}AMOUNT", 5),
            Lines({"{8}AMOUNT PAID    500.00  ", "{8}CREDIT CARD    100.00    ",
                   "{8}MEALS PASS    50.00     ", "{8}POINTS USED   25.50     ",
                   "{8}AMT RETURNED   200.00    "}));
  EXPECT_EQ(lines_from(wide_layout(bill, {}), "    AMOUNT", 5),
            Lines({"    AMOUNT PAID    500.00    ", "    CREDIT CARD    100.00    ",
                   "    MEALS PASS    50.00     ", "    POINTS USED   25.50     ",
                   "    AMT RETURNED   200.00    "}));
}

TEST(BillLayouts, PrintTheChangeOfACreditBillOnTheWideOneAlone) {
  for (const auto* type : {"CREDIT BILL", "HOME DELIVERY"}) {
    PrintedBill bill = cash_bill();
    bill.tBillType = type;
    EXPECT_EQ(lines_from(receipt_layout(bill, {}), "{8}AMT", 1), Lines());
    EXPECT_EQ(lines_from(wide_layout(bill, {}), "    AMT", 1),
              Lines({"    AMT RETURNED   200.00    "}));
  }
}

TEST(BillLayouts, NameTheCustomer) {
  struct Case {
    std::string code;
    std::string name;
    Lines receipt;
    Lines wide;
  };
  const Case cases[] = {
      {"57", "Mr. Rao ", {"Customer : 57 , Mr. Rao"}, {}},
      {"57", "", {"Customer : 57 , "}, {}},
      {"0", " Mr. Rao", {"TO :Mr. Rao"}, {"TO : Mr. Rao"}},
      {"", "R", {}, {}},
      {"0.5", "Mr. Rao", {"Customer : 0.5 , Mr. Rao"}, {"TO : Mr. Rao"}},
  };
  for (const Case& example : cases) {
    PrintedBill bill = cash_bill();
    bill.tCustomerCode = example.code;
    bill.tBillTo = example.name;
    const auto start = example.code == "57" || example.code == "0.5" ? "Customer" : "TO :";
    EXPECT_EQ(lines_from(receipt_layout(bill, {}), start, 1), example.receipt);
    EXPECT_EQ(lines_from(wide_layout(bill, {}), "TO :", 1), example.wide);
  }
}

TEST(BillLayouts, FitEachCellIntoItsField) {
  PrintedBill bill = cash_bill();
  bill.rows = {
      {"0", "NOT PRINTED", "1.00", "1.00", "1.00", "1.00"},
      {"7", "ALPHONSO MANGOES OF RATNAGIRI, BOX", "1234567.89", "0.5", "1.50", "123456.78"},
      {"", "NOT PRINTED EITHER", "", "", "", ""},
      {"8", "RETURNED", "********", "10.00", "-2.50", "-25.00"},
      {"9", "", "", "", "1234.00", ""},
  };
  EXPECT_EQ(lines_from(receipt_layout(bill, {}), "{0}", 4),
            Lines({"{0}ALPHONSO MANGOES OF R1234567.    0.50  2123456.7",
                   "{0}RETURNED             ********   10.00 -3  -25.00",
                   "{0}                                     123    0.00",
                   "                           ---------------------"}));
  EXPECT_EQ(lines_from(wide_layout(bill, {}), "    2", 4),
            Lines({"    2   ALPHONSO MANGOES OF RATNAGIRI, 1234567.     0.5    1.500123456.78",
                   "    4   RETURNED                       ********   10.00   -2.500   -25.00",
                   "    5                                                   1234.000     0.00",
                   "                                                     ---------------------"}));
}

TEST(BillLayouts, PrintAnEmptyBill) {
  EXPECT_EQ(
      readable(receipt_layout({}, {})),
      Lines({"{48} TELA MINI SUPER MARKET", "{8}No.38B, MARVOPALLI STREET, SUNVALE TOWN - 99001",
             "{8}                CELL : 9000012345", "{8}",
             "Date    :               Time:", "Bill No.:                         COUNTER No. ",
             "{16}" + kDashes48, "{8}Product Name             Mrp   Rate  Qty  Amount",
             "{16}" + kDashes48, "                           ---------------------",
             "{16}                          TOTAL Rs.           ", "{16}" + kDashes48,
             "{16} TOTAL QTY : ", "{8}", "{0A}{CUT}{8}"}));
}

TEST(BillLayouts, PrintOneByteACharacter) {
  PrintedBill bill = cash_bill();
  bill.tBillTo = "José ₹ अब";
  bill.rows = {{"7", "CAFÉ DE MÁLAGA AÑEJO €", "1.00", "1.00", "1.00", "1.00"}};
  EXPECT_EQ(lines_from(receipt_layout(bill, {}), "TO", 1), Lines({"TO :Jos{E9} ? ??"}));
  EXPECT_EQ(lines_from(receipt_layout(bill, {}), "{0}", 1),
            Lines({"{0}CAF{C9} DE M{C1}LAGA A{D1}EJO     1.00    1.00  1    1.00"}));
}

TEST(BillLayouts, LeaveOutShortTrailerLines) {
  const BillPrintSettings settings{.BillLine1 = "", .BillLine2 = "A", .BillLine3 = "OK"};
  const Lines receipt = readable(receipt_layout(cash_bill(), settings));
  EXPECT_EQ(Lines(receipt.end() - 3, receipt.end()),
            Lines({"{8}", "                      OK", "{0A}{CUT}{8}"}));
  const Lines wide = readable(wide_layout(cash_bill(), settings));
  EXPECT_EQ(Lines(wide.end() - 2, wide.end()), Lines({"", "{0E}              OK"}));
}

TEST(BillBytes, FollowPrintNo) {
  const PrintedBill bill = cash_bill();
  EXPECT_EQ(bill_bytes(1, bill, kSettings), receipt_layout(bill, kSettings));
  EXPECT_EQ(bill_bytes(2, bill, kSettings), wide_layout(bill, kSettings));
  for (const int PrintNo : {-1, 0, 3})
    EXPECT_EQ(bill_bytes(PrintNo, bill, kSettings), std::nullopt);
}

TEST(BillStream, TabGoesToAColumnOfTheLine) {
  BillStream out;
  out.line("ab", Tab{3}, "next column");
  out.line("ab", Tab{2}, "past it");
  out.line(Tab{1}, "first column");
  out.line(Control{"\x1B!\x08"}, Tab{6}, "control bytes count");
  out.line("é₹", Tab{4}, "a character counts once");
  out.put("open ");
  out.line("line", Tab{11}, "tab");
  EXPECT_EQ(readable(out.bytes()),
            Lines({"abnext column", "ab", " past it", "first column", "{8}  control bytes count",
                   "{E9}? a character counts once", "open line tab"}));
}

}  // namespace
}  // namespace tela
