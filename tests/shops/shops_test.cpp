// The reports of a shop tie out, whatever the shop has been through: each figure with what plain
// C++ reckons from the rows, and the reports with each other.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "screens/registry.h"
#include "shops/tie_out.h"

namespace tela::testing {
namespace {

unsigned number_in(const char* variable, unsigned otherwise) {
  const char* text = std::getenv(variable);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

// The few rows that one of the faults needs, as statements.
std::string smallest(Shop& shop, const InventedShop& invented, unsigned seed,
                     const std::string& of) {
  const auto left = [&](const Rows& rows) {
    return faults(shop, {rows, invented.season}, seed, of);
  };
  const Rows rows = shrunk(invented.rows, [&](const Rows& fewer) { return !left(fewer).empty(); });
  std::string text = left(rows).front().how;
  for (const Row& row : rows) text += "\n  " + insert_sql(row);
  return text;
}

// One of four parts, so that they run side by side.
class InventedShops : public ::testing::TestWithParam<unsigned> {};

TEST_P(InventedShops, TieOut) {
  constexpr unsigned kParts = 4;
  const unsigned first = number_in("TELA_FIRST_SHOP", 1);
  const unsigned shops = number_in("TELA_SHOPS", 20);
  Shop shop;
  for (unsigned seed = first + GetParam(); seed < first + shops; seed += kParts) {
    const InventedShop invented = invent_shop(seed);
    std::set<std::string> told;
    for (const Fault& fault : faults(shop, invented, seed))
      if (told.insert(fault.of).second)
        ADD_FAILURE() << "shop " << seed << ", " << fault.of << ": " << fault.how
                      << "\nand of few rows: " << smallest(shop, invented, seed, fault.of);
  }
}

INSTANTIATE_TEST_SUITE_P(Parts, InventedShops, ::testing::Range(0U, 4U));

std::set<int> columns_of(const std::string& screen, const std::string& grid) {
  std::set<int> columns;
  for (const Report& report : all_reports())
    if (report.screen == screen && report.grid == grid)
      for (const Column& column : report.columns) columns.insert(column.at);
  return columns;
}
std::set<std::string> boxes_of(const std::string& screen) {
  std::set<std::string> boxes;
  for (const Report& report : all_reports())
    if (report.screen == screen)
      for (const auto& [name, box] : report.boxes) boxes.insert(name);
  return boxes;
}

// A new screen, column or box without a second way to be had fails here.
TEST(InventedShop, EveryFigureOfEveryScreenIsReckonedASecondTime) {
  Shop shop;
  for (const ScreenEntry& entry : all_screens()) {
    const std::string name(entry.name);
    const auto screen = entry.make(shop.state());
    const std::set<std::string> boxes = boxes_of(name);
    for (const Control& control : screen->form().controls()) {
      const std::string where = name + "." + control.name;
      if (control.chart) {
        EXPECT_FALSE(columns_of(name, "chart").empty()) << where;
      }
      if (control.kind == ControlKind::text && control.locked && control.text == "0.00") {
        EXPECT_TRUE(boxes.contains(control.name)) << where;
      }
      if (!control.grid) continue;
      const std::set<int> columns = columns_of(name, control.name);
      EXPECT_FALSE(columns.empty()) << where;
      for (int column = 1; column < control.grid->Cols(); ++column)
        EXPECT_TRUE(columns.contains(column)) << where << " column " << column;
    }
  }
}

TEST(InventedShop, IsHarderThanTheDemo) {
  std::map<std::string, int> seen;
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const Rows rows = invent_shop(seed).rows;
    const Rows lines = of(rows, "Sales"), bills = of(rows, "SalesTemp");
    const auto count = [&](const char* what, const Rows& found) {
      seen[what] += static_cast<int>(found.size());
    };
    count("returns", where(lines, [](const Row& line) { return line.number("Qty") < 0; }));
    count("no quantity", where(lines, [](const Row& line) { return line.number("Qty") == 0; }));
    count("null payments", where(bills, [](const Row& bill) { return bill.is_null("CardPaid"); }));
    count("wide totals", where(bills, [](const Row& bill) { return bill.number("Total") > 1e5; }));
    count("other rates", where(lines, [](const Row& line) { return line.number("iIGst") == 3; }));
    count("cess", where(lines, [](const Row& line) { return line.number("CessPercent") > 0; }));
    count("bills without lines", unmatched(bills, "BillNo", lines, "BillNo"));
    count("lines without bills", unmatched(lines, "BillNo", bills, "BillNo"));
    count("items gone", unmatched(lines, "iCode", of(rows, "Items"), "iCode"));
    count("suppliers gone",
          unmatched(of(rows, "PurchaseTemp"), "Sname", of(rows, "Supplier"), "Sname"));
    count("leap days",
          where(bills, [](const Row& bill) { return bill.text("BillDate").ends_with("-02-29"); }));
    count("ends of years",
          where(bills, [](const Row& bill) { return bill.text("BillDate").ends_with("-12-31"); }));
    count("quotes", where(lines, [](const Row& line) {
            return line.text("iName").find('\'') != std::string::npos;
          }));
  }
  for (const auto& [what, times] : seen) EXPECT_GT(times, 0) << what;
}

// Of rows of which two together fail, those two are left.
TEST(InventedShop, ShrinksToTheRowsThatFail) {
  const InventedShop invented = invent_shop(2);
  ASSERT_GT(invented.rows.size(), 10U);
  const std::string one = insert_sql(invented.rows[3]);
  const std::string other = insert_sql(invented.rows[invented.rows.size() - 2]);
  const auto holds = [](const Rows& rows, const std::string& sql) {
    return std::any_of(rows.begin(), rows.end(),
                       [&](const Row& row) { return insert_sql(row) == sql; });
  };
  const Rows left = shrunk(
      invented.rows, [&](const Rows& rows) { return holds(rows, one) && holds(rows, other); });
  ASSERT_EQ(left.size(), 2U);
  EXPECT_EQ(insert_sql(left[0]), one);
  EXPECT_EQ(insert_sql(left[1]), other);
}

}  // namespace
}  // namespace tela::testing
