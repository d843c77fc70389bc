// The demo catalogue: the same shop every time, and figures that agree with one another.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "apps/tela_catalogue/demo/demo_catalogue.h"
#include "apps/tela_catalogue/demo/parties.h"
#include "apps/tela_catalogue/demo/trading_days.h"

namespace tela::demo {
namespace {

using namespace std::chrono_literals;

class MemorySink : public RowSink {
 public:
  void add(std::string_view table, const Row& row) override {
    tables[std::string(table)].push_back(row);
  }
  std::map<std::string, std::vector<Row>> tables;
};

constexpr Date last_day{2024y, std::chrono::November, 3d};

MemorySink demo_of(const DemoOptions& options) {
  MemorySink sink;
  make_demo(options, sink, [](int) {});
  return sink;
}

// Forty days before Diwali, small enough to be made for every test.
const MemorySink& small_demo() {
  static const MemorySink sink = demo_of({40, 50, 250, 1, last_day});
  return sink;
}

double number(const Row& row, std::size_t column) {
  return std::get<double>(row.at(column));
}
std::int64_t code(const Row& row, std::size_t column) {
  return std::get<std::int64_t>(row.at(column));
}
const std::string& text(const Row& row, std::size_t column) {
  return std::get<std::string>(row.at(column));
}

// The columns that the tests read, by their place in the schema.
namespace header {
enum : std::size_t {
  bill,
  date,
  time,
  opened,
  counter,
  net = 11,
  discount,
  total,
  cash,
  card,
  meals,
  mobile,
  mobile_kind,
  points,
  change,
  saved,
  type
};
}
namespace line {
enum : std::size_t {
  bill,
  date,
  counter,
  item,
  name,
  mrp,
  rate,
  cost,
  quantity,
  amount,
  cgst,
  sgst,
  igst
};
}
namespace item {
enum : std::size_t {
  code,
  name,
  long_name,
  mrp,
  rate,
  cost,
  opening,
  minimum,
  stock,
  category,
  supplier,
  hsn,
  gst,
  created
};
}

TEST(Demo, IsTheSameForTheSameOptionsAndAnotherForAnotherSeed) {
  const MemorySink again = demo_of({40, 50, 250, 1, last_day});
  EXPECT_EQ(again.tables, small_demo().tables);
  const MemorySink other = demo_of({40, 50, 250, 2, last_day});
  EXPECT_NE(other.tables.at("Sales"), small_demo().tables.at("Sales"));
}

TEST(Demo, HeadersAgreeWithTheirLines) {
  struct Lines {
    Value date;
    Value counter;
    double amount = 0;
  };
  std::map<std::int64_t, Lines> lines;
  for (const Row& row : small_demo().tables.at("Sales")) {
    Lines& of_bill = lines[code(row, line::bill)];
    of_bill.date = row[line::date];
    of_bill.counter = row[line::counter];
    of_bill.amount += number(row, line::amount);
    const double exact = number(row, line::rate) * number(row, line::quantity);
    EXPECT_NEAR(number(row, line::amount), exact, 0.00501);
    EXPECT_EQ(number(row, line::cgst) + number(row, line::sgst), number(row, line::igst));
  }
  const auto& headers = small_demo().tables.at("SalesTemp");
  ASSERT_EQ(headers.size(), 40u * 50u);
  ASSERT_EQ(lines.size(), headers.size());
  for (const Row& row : headers) {
    const Lines& of_bill = lines.at(code(row, header::bill));
    EXPECT_EQ(of_bill.date, row[header::date]);
    EXPECT_EQ(of_bill.counter, row[header::counter]);
    EXPECT_NEAR(of_bill.amount, number(row, header::net), 0.001);
    EXPECT_NEAR(number(row, header::net) - number(row, header::discount),
                number(row, header::total), 0.001);
    EXPECT_LT(std::get<TimeOfDay>(row[header::opened]), std::get<TimeOfDay>(row[header::time]));
  }
}

TEST(Demo, EveryBillIsPaidAsItsTypeSays) {
  std::set<std::string> types;
  std::set<std::size_t> ways_together;
  for (const Row& row : small_demo().tables.at("SalesTemp")) {
    const std::string& type = text(row, header::type);
    types.insert(type);
    double paid = -number(row, header::change);
    std::size_t ways = 0;
    for (const auto way :
         {header::cash, header::card, header::meals, header::mobile, header::points}) {
      EXPECT_GE(number(row, way), 0);
      paid += number(row, way);
      ways += number(row, way) > 0 ? 1 : 0;
    }
    ways_together.insert(ways);
    if (type == "CREDIT BILL") {
      EXPECT_LE(paid, std::max(number(row, header::total), 0.0) + 0.001);
    } else {
      EXPECT_NEAR(paid, number(row, header::total), 0.001) << "bill " << code(row, header::bill);
    }
  }
  EXPECT_EQ(types,
            (std::set<std::string>{"CASH/CREDIT", "POINTS SALES", "CREDIT BILL", "HOME DELIVERY"}));
  EXPECT_TRUE(ways_together.count(1) && ways_together.count(2)) << "single and split payments";
}

TEST(Demo, TheStockIsWhatTheMovementsLeave) {
  std::map<std::int64_t, double> moved;
  for (const Row& row : small_demo().tables.at("Purchase")) {
    moved[code(row, 4)] += number(row, 6) + number(row, 7);
  }
  for (const Row& row : small_demo().tables.at("StockAdjust"))
    moved[code(row, 0)] += number(row, 3);
  for (const Row& row : small_demo().tables.at("Sales")) {
    moved[code(row, line::item)] -= number(row, line::quantity);
  }
  for (const Row& row : small_demo().tables.at("Items")) {
    EXPECT_NEAR(number(row, item::stock), number(row, item::opening) + moved[code(row, item::code)],
                0.001);
  }
}

TEST(Demo, RatesRunFromTheCostToThePrintedPrice) {
  const auto& items = small_demo().tables.at("Items");
  ASSERT_EQ(items.size(), 250u);
  std::size_t at_a_loss = 0;
  std::set<double> slabs;
  for (const Row& row : items) {
    EXPECT_GE(number(row, item::mrp), number(row, item::rate));
    at_a_loss += number(row, item::cost) >= number(row, item::rate) ? 1 : 0;
    slabs.insert(number(row, item::gst));
  }
  EXPECT_LT(at_a_loss, items.size() / 20);
  EXPECT_EQ(slabs, (std::set<double>{0, 5, 12, 18, 28}));
}

TEST(Demo, PurchaseHeadersAgreeWithTheirLines) {
  struct Sums {
    double quantity = 0, amount = 0, tax = 0;
  };
  std::map<std::int64_t, Sums> sums;
  std::set<std::string> tax_types;
  for (const Row& row : small_demo().tables.at("Purchase")) {
    Sums& of_note = sums[code(row, 0)];
    of_note.quantity += number(row, 6);
    of_note.amount += number(row, 12);
    of_note.tax += number(row, 14) + number(row, 16) + number(row, 18);
    EXPECT_NEAR(number(row, 12) + number(row, 14) + number(row, 16) + number(row, 18),
                number(row, 19), 0.001);
    EXPECT_EQ(number(row, 18) > 0, text(row, 22) == "IGST" && number(row, 17) > 0);
  }
  const auto& notes = small_demo().tables.at("PurchaseTemp");
  ASSERT_EQ(notes.size(), sums.size());
  for (const Row& row : notes) {
    const Sums& of_note = sums.at(code(row, 1));
    tax_types.insert(text(row, 7));
    EXPECT_NEAR(number(row, 8), of_note.quantity, 0.001);
    EXPECT_NEAR(number(row, 11), of_note.amount, 0.001);
    EXPECT_NEAR(number(row, 12) + number(row, 13) + number(row, 14), of_note.tax, 0.001);
    EXPECT_NEAR(number(row, 15), of_note.amount + of_note.tax + number(row, 19), 0.001);
    EXPECT_NEAR(number(row, 18), number(row, 15) - number(row, 17), 0.5001);
  }
  EXPECT_EQ(tax_types, (std::set<std::string>{"SGST", "IGST", "TOT"}));
}

TEST(Demo, HoldsWhatTheReportsShow) {
  const auto& tables = small_demo().tables;
  for (const char* table :
       {"Sales1", "SalesTemp1", "wsales", "wsalestemp", "salesreturn", "BillRateChanged",
        "ProductEdit", "Cust_Trans", "Journal", "SupplierCashPay", "OptimumStock", "GiftPoints"}) {
    EXPECT_TRUE(tables.count(table)) << table;
  }
  std::size_t returns = 0;
  std::size_t by_weight = 0;
  for (const Row& row : tables.at("Sales")) {
    const double quantity = number(row, line::quantity);
    returns += quantity < 0 ? 1 : 0;
    by_weight += quantity != std::floor(quantity) ? 1 : 0;
  }
  EXPECT_GT(returns, 0u);
  EXPECT_GT(by_weight, 0u);
}

TEST(Demo, TheSmallestShopTrades) {
  MemorySink sink;
  const DemoSummary summary = make_demo({1, 1, 1, 0, last_day}, sink, [](int) {});
  EXPECT_EQ(summary.bills, 1);
  EXPECT_EQ(sink.tables.at("SalesTemp").size(), 1u);
}

TEST(TradingDays, DealOutAllBillsWithPeaks) {
  Random random(1);
  const std::vector<int> bills = bills_of_days(last_day, 3650, 7, random);
  std::int64_t sum = 0;
  for (const int of_day : bills) sum += of_day;
  EXPECT_EQ(sum, 3650 * 7);

  const std::vector<int> month = bills_of_days(last_day, 32, 1000, random);
  const int diwali_eve = month[28];  // Thursday, 31 October
  const int plain_thursday = month[14];
  EXPECT_GT(diwali_eve, plain_thursday * 5 / 4);
}

TEST(Parties, GstNumbersCarryTheirCheckCharacter) {
  Random random(7);
  const std::string number = gst_number("37", random);
  ASSERT_EQ(number.size(), 15u);
  EXPECT_EQ(number.substr(0, 2), "37");
  EXPECT_EQ(number.substr(12, 2), "1Z");
  static const std::string alphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  // Luhn's rule in base 36: with the check character counted once, the sum is a multiple of 36.
  std::size_t sum = alphabet.find(number.back());
  for (std::size_t i = 0; i < 14; ++i) {
    const std::size_t product = alphabet.find(number[i]) * (i % 2 == 0 ? 1 : 2);
    sum += product / 36 + product % 36;
  }
  EXPECT_EQ(sum % 36, 0u);
}

}  // namespace
}  // namespace tela::demo
