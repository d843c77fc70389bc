// What the bytes of a bill come to on paper, read as the printer reads them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "report_framework/bill_printing.h"
#include "tools/escpos/paper.h"

namespace tela {
namespace {

constexpr int kReceiptColumns = 48;

std::string text_of(const PrintedLine& line) {
  std::string text;
  for (const PrintedCharacter& character : line.characters) {
    text.resize(static_cast<std::size_t>(character.column), ' ');
    text += character.character;
  }
  return text;
}

PrintedBill widest_bill() {
  PrintedBill bill;
  bill.tBillNo = "1234567890";
  bill.tCounterNo = "2";
  bill.tTotal = bill.tSaved = bill.tCardPaid = "1234567.50";
  bill.rows = {{"1", "ALPHONSO MANGOES OF RATNAGIRI", "12345.00", "12345.00", "999", "99999.99"}};
  return bill;
}

TEST(ReceiptOnPaper, FitsItsColumnsAndIsCutOnce) {
  BillPrintSettings settings;
  settings.PrintTop = 1;
  settings.PrintEnd = 2;
  const std::string bytes = receipt_layout(widest_bill(), settings);
  const auto lines = read_escpos(bytes, kReceiptColumns);
  const auto line_feeds = std::count(bytes.begin(), bytes.end(), '\n');
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(line_feeds)) << "a line ran over";
  const auto cuts = std::count_if(lines.begin(), lines.end(),
                                  [](const PrintedLine& line) { return line.cut_here; });
  EXPECT_EQ(cuts, 1);
  EXPECT_TRUE(lines.back().cut_here);
}

TEST(ReceiptOnPaper, ShowsTheTotalTallFromColumn27) {
  const auto lines = read_escpos(receipt_layout(widest_bill(), {}), kReceiptColumns);
  const auto total = std::find_if(lines.begin(), lines.end(), [](const PrintedLine& line) {
    return text_of(line).ends_with("TOTAL Rs. 1234567.50");
  });
  ASSERT_NE(total, lines.end());
  EXPECT_EQ(text_of(*total).find("TOTAL"), 26U);
  EXPECT_EQ(total->characters.back().height, 2);
}

}  // namespace
}  // namespace tela
