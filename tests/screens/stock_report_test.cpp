// The stock report: a worked case, its boundaries, and random movements rebuilt without SQL.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <string>

#include "platform/text/number_text.h"
#include "screens/stock/frmStockReport.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Row = std::vector<std::string>;

std::vector<Row> rows(const Json& state) {
  std::vector<Row> all = state["grids"]["MSHF"]["cells"];
  all.erase(all.begin());
  return all;
}

/// What happened to stock on one day of January 2024.
struct Movement {
  enum class Kind { sale, purchase, adjustment };
  Kind kind = Kind::sale;
  int code = 0;
  int day = 1;
  double quantity = 0;
  double free = 0;  ///< of a purchase
};

std::string day_text(int day) {
  return std::string("'2024-01-") + (day < 10 ? "0" : "") + std::to_string(day) + "'";
}

struct StockedShop : Shop {
  /// `created` 0: the day is not known.
  void add_stocked(int code, const std::string& name, int created, double opening) {
    sql("insert into Items (iCode,iName,OpStock,Stock,CreatedDate) values (" +
        std::to_string(code) + ",'" + name + "'," + plain_number(opening) + ",999," +
        (created == 0 ? "null" : day_text(created)) + ")");
  }

  void add(const Movement& moved) {
    const std::string day = day_text(moved.day);
    const std::string code = std::to_string(moved.code);
    const std::string quantity = plain_number(moved.quantity);
    switch (moved.kind) {
      case Movement::Kind::sale:
        sql("insert into Sales (BillNo,iCode,Qty,BillDate) values (1," + code + "," + quantity +
            "," + day + ")");
        return;
      case Movement::Kind::purchase:
        sql("insert into Purchase (iCode,Qty,FQty,BillDate) values (" + code + "," + quantity +
            "," + plain_number(moved.free) + "," + day + ")");
        return;
      case Movement::Kind::adjustment:
        sql("insert into StockAdjust (iCode,AdjustQty,AdjustDate) values (" + code + "," +
            quantity + "," + day + ")");
    }
  }

  std::vector<Row> report(int from, int to) {
    const auto picked = [](int day) {
      return (day < 10 ? "0" : "") + std::to_string(day) + "/01/2024\n";
    };
    return rows(show("open frmStockReport\nset DTP1 " + picked(from) + "set DTP2 " + picked(to) +
                     "press cmdView"));
  }
};

using Kind = Movement::Kind;

class StockReport : public ::testing::Test {
 protected:
  StockReport() {
    shop.add_stocked(2, "Farmer''s Soap ", 1, 10);
    for (const Movement& moved : std::initializer_list<Movement>{{Kind::purchase, 2, 8, 5, 1},
                                                                 {Kind::adjustment, 2, 9, -2},
                                                                 {Kind::sale, 2, 9, 3},
                                                                 {Kind::sale, 2, 10, 5},
                                                                 {Kind::sale, 2, 12, -1},
                                                                 {Kind::purchase, 2, 11, 2, 1},
                                                                 {Kind::adjustment, 2, 20, 1},
                                                                 {Kind::sale, 2, 21, 7}})
      shop.add(moved);
    shop.add_stocked(1, "Rice", 20, 4);
    shop.add_stocked(3, "Salt", 19, -6);
    shop.add_stocked(4, "Nothing", 0, 5);
    shop.add({Kind::sale, 99, 12, 1});
  }

  StockedShop shop;
};

TEST_F(StockReport, AWorkedCaseWithItsBoundaries) {
  EXPECT_THAT(shop.report(10, 20),
              ElementsAre(Row{"1", "1", "Rice", "0.00", "0.00", "0.00", "0.00", "0.00"},
                          Row{"2", "2", "Farmer's Soap", "11.00", "4.00", "2.00", "1.00", "10.00"},
                          Row{"3", "3", "Salt", "-6.00", "0.00", "0.00", "0.00", "-6.00"}))
      << "created on the last day: zeros; before it: counted; on no day: not listed";
  EXPECT_THAT(shop.report(12, 21)[1],
              ElementsAre("2", "2", "Farmer's Soap", "9.00", "6.00", "0.00", "1.00", "4.00"))
      << "free goods count from the day after";
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["colours"].size(), 0u);
}

TEST_F(StockReport, PrintsAllRowsOrThoseInStock) {
  const auto all = shop.report(10, 20);
  EXPECT_THAT(shop.run("press cmdPreview").back(),
              HasSubstr(R"("StockRep.rpt","query":"SELECT * FROM StockRepPrint","rows":3)"));
  EXPECT_THAT(shop.run("set DTP2 25/01/2024\npress cmdprint").back(), HasSubstr(R"("rows":1)"));
  EXPECT_EQ(shop.sql("select * from StockRepPrint"),
            Json::parse(R"([["2024-01-10","2024-01-25",2,2,"Farmer's Soap",11,4,2,1,10]])"))
      << "the rows of the grid, the days of the pickers";
  shop.run("press cmdRefresh\npress cmdPreview");
  EXPECT_EQ(shop.sql("select * from StockRepPrint").dump(), "[]");
}

TEST_F(StockReport, AReversedPeriodIsRefused) {
  shop.report(10, 20);
  EXPECT_THAT(shop.run("set DTP1 21/01/2024\npress cmdView"),
              ElementsAre(AllOf(HasSubstr("\"Start Date is Greater than End Date\""),
                                HasSubstr("information")),
                          R"({"focus":"DTP1"})"));
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 4) << "the list stays";
  EXPECT_THAT(
      shop.run("set DTP2 21/01/2024\nkey DTP2 enter\npress cmdView"),
      ElementsAre(R"({"focus":"cmdView"})", R"({"pointer":"busy"})", R"({"pointer":"normal"})"));
}

struct RandomItem {
  int created = 0;
  double opening = 0;
};

/// The stock of the items 1 to n, worked out one movement at a time.
std::vector<Row> rebuilt(const std::vector<RandomItem>& items,
                         const std::vector<Movement>& movements, int from, int to) {
  std::vector<Row> all;
  for (int code = 1; code <= static_cast<int>(items.size()); ++code) {
    const RandomItem& item = items[static_cast<std::size_t>(code - 1)];
    if (item.created == 0) continue;
    double opening = item.opening;
    std::array<double, 3> within = {};
    for (const Movement& moved : movements) {
      if (moved.code != code || moved.day > to) continue;
      if (moved.day >= from)
        within[static_cast<std::size_t>(moved.kind)] += moved.quantity;
      else
        opening += moved.kind == Kind::sale ? -moved.quantity : moved.quantity + moved.free;
    }
    double closing = opening - within[0] + within[1] + within[2];
    if (item.created >= to) {
      opening = closing = 0;
      within = {};
    }
    Row row = {std::to_string(all.size() + 1), std::to_string(code), "i" + std::to_string(code)};
    for (const double figure : {opening, within[0], within[1], within[2], closing})
      row.push_back(format_number(figure, "0.00"));
    all.push_back(row);
  }
  return all;
}

TEST(StockReportProperty, IsTheSumOfTheMovements) {
  std::mt19937 random(7);
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int catalogue = 0; catalogue < 3; ++catalogue) {
    StockedShop shop;
    std::vector<RandomItem> items;
    for (int code = 1; code <= 12; ++code) {
      // A fifth of them without a day of creation; eighths add up exactly.
      items.push_back({below(5) == 0 ? 0 : 1 + below(20), below(200) / 8.0 - 5});
      shop.add_stocked(code, "i" + std::to_string(code), items.back().created,
                       items.back().opening);
    }
    std::vector<Movement> movements;
    for (int i = 0; i < 150; ++i) {
      const auto kind = static_cast<Kind>(below(3));
      movements.push_back({kind, 1 + below(13), 1 + below(20), below(160) / 8.0 - 4,
                           kind == Kind::purchase ? below(3) : 0.0});
      shop.add(movements.back());
    }
    for (int period = 0; period < 12; ++period) {
      const int from = 1 + below(20);
      const int to = from + below(static_cast<unsigned>(21 - from));
      EXPECT_EQ(shop.report(from, to), rebuilt(items, movements, from, to))
          << "from " << from << " to " << to;
    }
  }
}

TEST(StockReportStatements, ReadWordForWord) {
  EXPECT_EQ(
      frmStockReport::computed_sql({"F", "T"}),
      "Insert Into StkAsOnDate Select icode,iname,opstock,"
      "(Select isnull(sum(Sales.qty),0) from Sales where Items.icode=Sales.iCode and "
      "Sales.billdate<'F'), "
      "(Select isnull(sum(purchase.qty+purchase.Fqty),0) from purchase where "
      "Items.icode=purchase.iCode and purchase.billdate<'F'),"
      "(Select isnull(sum(stockadjust.AdjustQty),0) from stockadjust where "
      "Items.icode=stockadjust.iCode and stockadjust.AdjustDate<'F'),"
      "(Select isnull(sum(Sales.qty),0) from Sales where Items.icode=Sales.iCode and "
      "Sales.billdate>='F' and Sales.billdate<='T'), "
      "(Select isnull(sum(purchase.qty),0) from purchase where Items.icode=purchase.iCode and "
      "purchase.billdate>='F' and purchase.billdate<='T'),"
      "(Select isnull(sum(stockadjust.AdjustQty),0) from stockadjust where "
      "Items.icode=stockadjust.iCode and stockadjust.AdjustDate>='F' and "
      "stockadjust.AdjustDate<='T'),"
      "0 from items WHERE CreatedDate<'T' order by icode");
  EXPECT_EQ(frmStockReport::zeros_sql({"F", "T"}),
            "Insert Into StkAsOnDate Select icode,iname,0,0,0,0,0,0,0,0 from items WHERE "
            "CreatedDate>='T' order by icode");
}

}  // namespace
}  // namespace tela::testing
