// The lists must add up with each other, whatever the bills are. Random catalogues are read through
// the screens alone; the bills that were put in say only what kind each one is, and what it came to
// before a text rounded it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "platform/text/number_text.h"
#include "shell/database_gateway.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using Row = std::vector<std::string>;
using Rows = std::map<int, Row>;  // by the bill number

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}
  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  template <class List>
  auto one_of(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }
  // Mostly whole paise; some with a third decimal, and some too wide for eight characters.
  double amount() {
    const int kind = below(20);
    if (kind == 0) return 100000 + below(1000000) / 100.0;
    return kind < 4 ? below(1000000) / 1000.0 : below(100000) / 100.0;
  }
  double now_and_then() { return below(3) == 0 ? amount() : 0; }

 private:
  std::mt19937 random_;
};

// Amounts to the thousandth, which is as fine as the bills are; and as a cell shows them.
long thousandths(double amount) {
  return std::lround(amount * 1000);
}
std::string shown(long thousandths) {
  return format_number(static_cast<double>(thousandths) / 1000, "0.00");
}
long paise(const std::string& cell) {
  return std::lround(Val(cell) * 100);
}

const std::string kCounters[] = {"COUNTER-1", "COUNTER-2", "COUNTER-3"};
const std::string kDays[] = {"01", "02", "03", "04", "05"};
constexpr int kBills = 90;

// The first columns of a bill list that hold what, and the boxes that sum them.
constexpr std::size_t kAmount = 3, kTotal = 5, kCash = 6;
const std::map<std::size_t, std::string> kBoxes = {{5, "tTotalAmount"}, {6, "Text1"},
                                                   {7, "Text2"},        {8, "Text3"},
                                                   {9, "tMobilePay"},   {10, "Text4"}};

class ListsOfBills : public ::testing::TestWithParam<unsigned> {
 protected:
  ListsOfBills() {
    Chance chance(GetParam());
    shop.run("open frmList\nclose");
    Transaction filling(*shop.state().Con);
    for (int number = 1; number <= kBills; ++number) add(random_bill(chance, number), chance);
    filling.commit();
  }

  static Bill random_bill(Chance& chance, int number) {
    static const char* const kTypes[] = {"CASH/CREDIT", "cash/credit ", "POINTS SALES",
                                         "CREDIT BILL", "Credit Bill ", "HOME DELIVERY",
                                         "STAFF BILL"};
    static const char* const kStaff[] = {"ANU", "anu ", "O'Neil", "Mary Ann"};
    return {.number = number,
            .date = "2024-01-" + chance.one_of(kDays),
            .counter = chance.below(3) + 1,
            .staff = chance.one_of(kStaff),
            .type = chance.one_of(kTypes),
            .net = chance.amount(),
            .discount = chance.now_and_then(),
            .total = chance.amount(),
            .cash = chance.amount(),
            .card = chance.now_and_then(),
            .meals = chance.now_and_then(),
            .mobile = chance.now_and_then(),
            .points = chance.now_and_then()};
  }

  void add(const Bill& bill, Chance& chance) {
    static const char* const kKinds[] = {"UPI", "upi ", "QUICKPAY", ""};
    shop.add(bill);
    shop.sql("update SalesTemp set MobilePayType='" + std::string(chance.one_of(kKinds)) +
             "' where BillNo=" + std::to_string(bill.number));
    bills[bill.number] = bill;
  }

  // A list of all days, or of one.
  Json list(const std::string& screen, const std::string& inputs, const std::string& first = "01",
            const std::string& last = "05") {
    shop.run("open " + screen);
    const Form& form = shop.state().windows.find(screen)->form();
    std::string dates;
    for (const auto& [picker, day] : {std::pair("DTP1", first), std::pair("DTP2", last),
                                      std::pair("DTPicker1", first), std::pair("DTPicker2", last)})
      if (form.has(picker)) dates += std::string("set ") + picker + " " + day + "/01/2024\n";
    return shop.show(dates + inputs + "press cmdView");
  }
  static std::string counter(const std::string& entry) { return "pick Combo1 " + entry + "\n"; }

  static Rows rows(const Json& state) {
    Rows found;
    const Json& cells = state["grids"]["MSHF"]["cells"];
    for (std::size_t row = 1; row < cells.size(); ++row)
      EXPECT_TRUE(found.emplace(std::stoi(cells[row][0].get<std::string>()), cells[row]).second);
    return found;
  }

  // A row of plain numbers as the lists write it whose amounts pass through a text of eight
  // characters: a wider amount counts as 0, and of the payments asterisks remain.
  static Row through_text(Row row) {
    for (const std::size_t col : {3, 4, 5, 7, 8, 10})
      if (row[col].size() > 8) row[col] = col <= kTotal ? "0.00" : "********";
    return row;
  }

  bool of_other_type(int number) const { return bills.at(number).type == "STAFF BILL"; }

  // A column of a bill list from the bill itself, the cash derived or as it was stored.
  long exact(int number, std::size_t column, bool stored_cash) const {
    const Bill& bill = bills.at(number);
    const double derived = bill.total - (bill.card + bill.meals + bill.mobile + bill.points);
    const double columns[] = {
        bill.net,  bill.discount, bill.total,  stored_cash ? bill.cash : derived,
        bill.card, bill.meals,    bill.mobile, bill.points};
    return thousandths(columns[column - kAmount]);
  }

  Shop shop;
  std::map<int, Bill> bills;
};

TEST_P(ListsOfBills, CashAndCreditMakeTheMonth) {
  for (const std::string& entry : {std::string("ALL COUNTER"), kCounters[0], kCounters[2]}) {
    const Json month = list("frmmonthlySR", counter(entry));
    const Json cash = list("frmMonthlyCashSales", counter(entry));
    const Json credit = list("frmMonthlyCreditSales", counter(entry));
    Rows made = rows(cash);
    made.merge(rows(credit));
    EXPECT_EQ(made.size(), rows(cash).size() + rows(credit).size()) << "no bill is in both";

    std::map<std::size_t, long> lost;  // what the boxes of the month do not count
    for (auto& [number, row] : made) {
      const Row plain = row;
      // The month shows the stored cash of all bills that were not paid at the till.
      if (of_other_type(number)) row[kCash] = shown(exact(number, kCash, true));
      row = through_text(row);
      for (const auto& [col, box] : kBoxes) lost[col] += paise(plain[col]) - paise(row[col]);
    }
    EXPECT_EQ(made, rows(month)) << entry;
    for (const auto& [col, box] : kBoxes)
      EXPECT_EQ(paise(month["controls"][box]),
                paise(cash["controls"][box]) + paise(credit["controls"][box]) - lost[col])
          << entry << " " << box;
  }
}

TEST_P(ListsOfBills, UsersCountersDaysAndNumbersHoldTheSameBills) {
  const Rows month = rows(list("frmmonthlySR", counter("ALL COUNTER")));
  EXPECT_EQ(month.size(), static_cast<std::size_t>(kBills));

  Rows users;
  shop.run("open frmUserReport");
  const auto names = shop.show()["items"]["Combo1"].get<std::vector<std::string>>();
  EXPECT_EQ(names.size(), 3U) << "one name in two spellings is one user";
  for (const std::string& name : names) users.merge(rows(list("frmUserReport", counter(name))));
  EXPECT_EQ(users, month);

  Rows counters;
  for (const std::string& entry : kCounters)
    counters.merge(rows(list("frmmonthlySR", counter(entry))));
  EXPECT_EQ(counters, month);

  Rows days, cash_of_days;
  for (const std::string& day : kDays) {
    days.merge(rows(list("frmDailyS_R", counter("ALL COUNTER"), day, day)));
    cash_of_days.merge(rows(list("frmDailyCashsales", counter("ALL COUNTER"), day, day)));
  }
  EXPECT_EQ(days, month);
  EXPECT_EQ(cash_of_days, rows(list("frmMonthlyCashSales", counter("ALL COUNTER"))));

  const Rows by_number = rows(list("fBillToBill", "set Text1 1\nset Text2 90\n"));
  Rows by_value = rows(list("frmSalesByValue", "set Text1 1\nset Text2 9999999\n"));
  Rows through = by_number;
  for (auto& [number, row] : through) {
    row = through_text(row);
    if (bills.at(number).total < 1) by_value.insert({number, by_number.at(number)});
  }
  EXPECT_EQ(through, month);
  EXPECT_EQ(by_value, by_number) << "but for the bills of less than 1, which cannot be asked for";
}

// A grid sums what the bills store and rounds the sum, a list rounds each bill. So the grid is
// compared with the exact amounts of the bills that the list shows.
TEST_P(ListsOfBills, CounterGridsSumTheBillsOfTheLists) {
  const Json grids = list("frmDetailSales1", "");
  for (const auto& [grid, stored_cash] : {std::pair("MSHF", false), std::pair("MSHF1", true)}) {
    const Json& cells = grids["grids"][grid]["cells"];
    ASSERT_EQ(cells.size(), 5U) << "three counters and the blank row";
    for (std::size_t row = 1; row <= 3; ++row) {
      const std::string of = counter("COUNTER-" + cells[row][1].get<std::string>());
      Rows listed = rows(list("frmMonthlyCashSales", of));
      if (stored_cash) {
        std::erase_if(listed, [&](const auto& bill) { return !of_other_type(bill.first); });
        listed.merge(rows(list("frmMonthlyCreditSales", of)));
      }
      for (std::size_t col = kAmount; col <= 10; ++col) {
        long sum = 0;
        for (const auto& [number, cell] : listed) sum += exact(number, col, stored_cash);
        EXPECT_EQ(cells[row][col - 1], shown(sum)) << grid << " " << of << col;
      }
    }
  }
}

TEST_P(ListsOfBills, MobilePaymentsByKindMakeTheMobileColumn) {
  for (const std::string& entry : {std::string("ALL COUNTER"), kCounters[1]}) {
    const Json kinds = list("frmMobilePayDetails", counter(entry));
    const Json& cells = kinds["grids"]["MSHF"]["cells"];
    EXPECT_EQ(cells.size(), 4U) << "one kind in two spellings is one";
    long sum = 0;
    for (const auto& [number, row] : rows(list("frmmonthlySR", counter(entry))))
      sum += exact(number, 9, false);
    // Each kind is rounded by itself, by half a paisa at most.
    EXPECT_LE(std::abs(paise(kinds["controls"]["tTotalAmount"]) * 10 - sum), 3 * 5) << entry;
    long of_kinds = 0;
    for (std::size_t row = 1; row < cells.size(); ++row) of_kinds += paise(cells[row][2]);
    EXPECT_EQ(paise(kinds["controls"]["tTotalAmount"]), of_kinds);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ListsOfBills, ::testing::Values(1, 2, 3));

// What was sold of an item at a rate: its quantity and its amount, in hundredths.
using Sold = std::map<Row, std::pair<long, long>>;

Sold sold(const Json& state) {
  Sold found;
  for (const Row row : state["grids"]["MSHF"]["cells"]) {
    if (Val(row[1]) <= 0) continue;
    auto& [quantity, amount] = found[{row[1], row[2], row[3], row[4]}];
    quantity += paise(row[5]);
    amount += paise(row[6]);
  }
  return found;
}

// Bills with their returns in one shop, the same bills without them in the other: the item lists
// differ by what the returns list shows.
TEST(ListsOfLines, ReturnsAreTheNegativePartOfTheItemLists) {
  for (const unsigned seed : {1U, 2U}) {
    Chance chance(seed);
    Shop whole, without;
    whole.run("open frmList\nclose");
    without.run("open frmList\nclose");
    Transaction filling(*whole.state().Con), filling_other(*without.state().Con);
    for (int number = 1; number <= 40; ++number) {
      Bill bill{.number = number,
                .date = "2024-01-" + chance.one_of(kDays),
                .counter = chance.below(4) + 1};
      Bill kept = bill;
      for (int line = chance.below(4); line >= 0; --line) {
        const int code = chance.below(6) + 1;
        const double rate = chance.below(2) == 0 ? 40 : 44.04;
        const double quantity = (chance.below(16) + 1) * (chance.below(4) == 0 ? -0.25 : 0.25);
        bill.lines.push_back({code, "Item " + std::to_string(code), 50, rate, 30, quantity});
        if (quantity > 0) kept.lines.push_back(bill.lines.back());
      }
      whole.add(bill);
      without.add(kept);
    }
    filling.commit();
    filling_other.commit();
    for (const char* entry : {"ALL COUNTER", "COUNTER-1", "COUNTER-2", "COUNTER-3", "COUNTER-4"}) {
      const auto list = [&](Shop& shop, const std::string& screen) {
        return shop.show("open " + screen + "\nset DTP1 01/01/2024\nset DTP2 05/01/2024\n" +
                         "pick Combo1 " + entry + "\npress cmdView");
      };
      const Json all = list(whole, "frmItemSalesReport");
      const Json kept = list(without, "frmItemSalesReport");
      const Json returned = list(whole, "frmSaleReturn");
      Sold difference = sold(all);
      for (const auto& [item, amounts] : sold(kept)) {
        difference[item].first -= amounts.first;
        difference[item].second -= amounts.second;
      }
      std::erase_if(difference, [](const auto& item) { return item.second.first == 0; });
      EXPECT_FALSE(difference.empty());
      EXPECT_EQ(difference, sold(returned)) << entry;
      for (const char* box : {"tTotal", "tTotalQty"})
        EXPECT_EQ(paise(all["controls"][box]) - paise(kept["controls"][box]),
                  paise(returned["controls"][box]))
            << entry << " " << box;
    }
  }
}

}  // namespace
}  // namespace tela::testing
