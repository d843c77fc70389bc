// Optimum stock: the levels of what was sold, and an update that may break off anywhere.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "screens/stock/frmOptimumStock.h"
#include "support/breaking_connection.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSubsetOf;

using Row = std::vector<std::string>;

Row row(const Json& state, std::size_t number) {
  return state["grids"]["MSHF"]["cells"][number];
}

const char* const kView = "open frmOptimumStock\npick Combo1 ALL SUPPLIER\npress cmdView";

struct SoldShop : Shop {
  SoldShop() {
    sql("insert into Supplier (Scode,Sname,CreditDays) values (1,'Amma''s Kitchen',14),"
        "(2,'Lily',null)");
    add_item(1, "Rice", "GRAINS", "Amma's Kitchen");
    add_item(2, "Farmer's Soap ", "SOAPS", "Lily");
    add_item(3, "Salt", "SPICES", "Lily");
    add_item(4, "Anise", "SPICES", "Lily");
    add_item(5, "Ghee", "DAIRY", "Lily");
    sql("update Items set ministock=7");
    sql("insert into OptimumStock values (2,'Farmer''s Soap',6),(1,'Rice',5),(8,'Gone',4)");
    add({.number = 1,
         .lines = {{1, "Rice", 50, 45, 30, 12},
                   {1, "Rice", 50, 45, 30, -2},
                   {2, "Farmer's Soap ", 12, 10, 8, 5},
                   {3, "Salt", 9, 8, 6, 100}}});
    add({.number = 2,
         .lines = {{4, "Anise", 5, 4, 3, 1}, {5, "Ghee", 90, 80, 70, -3}, {6, "Old", 1, 1, 1, 9}}});
  }
};

class OptimumStock : public ::testing::Test {
 protected:
  SoldShop shop;
};

TEST_F(OptimumStock, ListsTheLevelsOfWhatWasSold) {
  Json state = shop.show(kView);
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 8) << "a blank row behind six items";
  EXPECT_THAT(row(state, 1),
              ElementsAre("1", "1", "Rice", "50.00", "10.00", "Amma's Kitchen", "3.00"));
  EXPECT_THAT(row(state, 2),
              ElementsAre("2", "2", "Farmer's Soap", "12.00", "5.00", "Lily", "2.00"));
  EXPECT_EQ(row(state, 4)[6], "0.00");
  EXPECT_EQ(row(state, 5)[6], "-1.00");
  EXPECT_EQ(row(state, 6)[5], "") << "no item any more";
  EXPECT_EQ(row(state, 7)[0], "");
  EXPECT_EQ(state["grids"]["MSHF"]["colours"].size(), 6u);
  state = shop.show("set Text1 12.5\npick Combo1 Amma's Kitchen\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_EQ(row(state, 1)[6], "1.00");
}

TEST_F(OptimumStock, ShowsTheCreditDaysOfTheSupplierChosen) {
  EXPECT_EQ(shop.show("open frmOptimumStock\npick Combo1 Amma's Kitchen")["controls"]["Text2"],
            "14");
  EXPECT_EQ(shop.show("pick Combo1 Lily")["controls"]["Text2"], "");
  EXPECT_EQ(shop.show("pick Combo1 Amma's Kitchen\npick Combo1 ALL SUPPLIER")["controls"]["Text2"],
            "");
}

TEST_F(OptimumStock, ChecksItsInputsInOrder) {
  shop.run("open frmOptimumStock");
  const auto refusal = [&](const std::string& script) {
    return shop.run(script + "press cmdView");
  };
  const auto is = [](const std::string& text, const std::string& focus) {
    return ElementsAre(AllOf(HasSubstr('"' + text + '"'), HasSubstr("critical")),
                       R"({"focus":")" + focus + "\"}");
  };
  EXPECT_THAT(refusal("set Text1 \nset DTP1 06/01/2024\n"),
              is("The From Date is Greater Than the To Date", "DTP1"));
  EXPECT_THAT(refusal("set DTP1 05/01/2024\ntype Text1 3x\n"),
              is("Please Enter The Level %", "Text1"));
  EXPECT_THAT(refusal("set Text1 0\n"), is("Plese Enter The Level", "Text1"));
  EXPECT_THAT(refusal("set Text1 30\n"), is("Please Select The Supplier Name", "Combo1"));
  EXPECT_THAT(shop.run("press cmdUpdate"), is("No Supplier Name Found", "Combo1"));
  EXPECT_THAT(shop.run("key DTP2 enter\nkey Text1 up\nkey Text1 enter\nkey Combo1 enter"),
              ElementsAre(R"({"focus":"Text1"})", R"({"focus":"DTP2"})", R"({"focus":"Combo1"})",
                          R"({"focus":"cmdView"})"));
}

TEST_F(OptimumStock, StoresLevelsAndQuantities) {
  const auto before = shop.stored();
  shop.run(kView);
  EXPECT_THAT(shop.run("set Text1 99\npress cmdUpdate"),
              ElementsAre(HasSubstr("\"Records Updated\",\"icon\":\"information\"")));
  EXPECT_THAT(changed_tables(before, shop.stored()), ElementsAre("Items", "OptimumStock"));
  EXPECT_EQ(shop.sql("select ministock from Items order by iCode").dump(), "[[3],[2],[30],[7],[7]]")
      << "a level of 0 or less is not stored";
  const char* const kept = R"([2,"Farmer's Soap",5],[1,"Rice",10],[8,"Gone",4])";
  EXPECT_EQ(shop.sql("select * from OptimumStock"),
            Json::parse("[" + std::string(kept) + R"(,[3,"Salt",100],[4,"Anise",1],[6,"Old",9]])"));
  EXPECT_EQ(shop.sql("select * from OptimumStockTemp where iCode=2"),
            Json::parse(R"([[2,"Farmer's Soap",5]])"));

  const auto after = shop.stored();
  shop.run("set DTP1 01/02/2024\nset DTP2 01/02/2024\npress cmdView\npress cmdUpdate");
  EXPECT_THAT(changed_tables(after, shop.stored()), IsEmpty());
  EXPECT_EQ(shop.sql("select * from OptimumStockTemp").dump(), "[]");
}

TEST_F(OptimumStock, OfAnItemAtTwoPricesTheLaterRowStays) {
  shop.add({.number = 3, .lines = {{1, "Rice", 55, 50, 30, 4}, {6, "Old", 2, 2, 1, 3}}});
  shop.run(std::string(kView) + "\npress cmdUpdate");
  EXPECT_EQ(shop.sql("select ministock from Items where iCode=1").dump(), "[[1]]");
  EXPECT_EQ(shop.sql("select OpStock from OptimumStock where iCode=1").dump(), "[[4]]");
  EXPECT_EQ(shop.sql("select OpStock from OptimumStock where iCode=6").dump(), "[[9],[3]]")
      << "one that is new is added twice";
}

// Broken off ahead of any call, it has done its first steps whole and its later ones not at all,
// and pressing Update again, on the same grid or on a new one, brings it to the end.
TEST(OptimumStockBrokenOff, IsFinishedByTheNextUpdate) {
  SoldShop whole;
  const auto before = whole.stored();
  whole.run(std::string(kView) + "\npress cmdUpdate");
  const auto after = whole.stored();

  const std::string nothing = R"([[2,"Farmer's Soap",6],[1,"Rice",5],[8,"Gone",4]])";
  const std::string first = R"([[2,"Farmer's Soap",6],[1,"Rice",10],[8,"Gone",4]])";
  const std::string both = R"([[2,"Farmer's Soap",5],[1,"Rice",10],[8,"Gone",4]])";
  std::set<std::string> seen;
  for (int calls = 0;; ++calls) {
    SoldShop shop;
    shop.run(kView);
    BreakingConnection& connection = BreakingConnection::around(shop.state());
    connection.allow(calls);
    const std::string told = shop.run("press cmdUpdate").back();
    connection.allow(BreakingConnection::kUnlimited);
    if (told.find("Records Updated") != std::string::npos) break;

    const auto broken = shop.stored();
    EXPECT_THAT(changed_tables(before, broken), IsSubsetOf({"Items", "OptimumStock"}));
    const std::string& items = broken.at("Items");
    const std::string& optimum = broken.at("OptimumStock");
    EXPECT_TRUE(items == after.at("Items") || (items == before.at("Items") && optimum == nothing))
        << calls;
    EXPECT_TRUE(optimum == nothing || optimum == first || optimum == both) << calls << optimum;
    seen.insert(items + optimum);

    shop.run(calls % 2 == 0 ? "press cmdUpdate"
                            : std::string("close\n") + kView + "\npress cmdUpdate");
    EXPECT_EQ(shop.stored(), after) << calls;
  }
  EXPECT_EQ(seen.size(), 4u);
}

// Only the four steps that the screen stands for are transactions: what it writes into OptimumStock
// one by one holds up no till for longer than a row takes.
TEST(OptimumStockStatements, RunInFourTransactionsAndAlone) {
  SoldShop shop;
  shop.run(kView);
  BreakingConnection& connection = BreakingConnection::around(shop.state());
  shop.run("press cmdUpdate");
  std::vector<std::string> written;
  int open = 0;
  for (const std::string& call : connection.take_statements()) {
    if (call == "begin") ++open;
    if (call == "commit") --open;
    const bool writes =
        call.starts_with("Update") || call.starts_with("Insert") || call.starts_with("Delete");
    if (writes) written.push_back(std::to_string(open) + " " + call);
  }
  EXPECT_THAT(
      written,
      ElementsAre(
          "1 Delete from OptimumStockTemp", "1 Update items set ministock=3.00 where icode=1",
          "1 Update items set ministock=2.00 where icode=2",
          "1 Update items set ministock=30.00 where icode=3",
          "1 Update items set ministock=3.00 where icode=6",
          "1 Insert into OptimumStockTemp values(1,'Rice',10.00)",
          "1 Insert into OptimumStockTemp values(2,'Farmer''s Soap',5.00)",
          "1 Insert into OptimumStockTemp values(3,'Salt',100.00)",
          "1 Insert into OptimumStockTemp values(4,'Anise',1.00)",
          "1 Insert into OptimumStockTemp values(6,'Old',9.00)",
          "0 Update OptimumStock set OpStock=10 where icode=1",
          "0 Update OptimumStock set OpStock=5 where icode=2",
          "0 Update OptimumStock set OpStock=100 where icode=3",
          "0 Update OptimumStock set OpStock=1 where icode=4",
          "0 Update OptimumStock set OpStock=9 where icode=6",
          "1 Insert into OptimumStock Select iCode,iName,OpStock from OptimumStockTemp where "
          "iCode not in (Select iCode from OptimumStock)"));
}

// A till gets its bill through between any two of them, and ahead of each
// transaction.
TEST(OptimumStockStatements, LetATillThroughBetweenThem) {
  SoldShop shop;
  shop.run(kView);
  const auto till = shop.platform().make_connection();
  till->open("Initial Catalog=TelaData");
  till->set_command_timeout(std::chrono::seconds(1));
  BreakingConnection& connection = BreakingConnection::around(shop.state());
  int bills = 0;
  connection.watch([&] {
    if (connection.in_transaction()) return;
    till->begin_trans();
    till->execute("insert into SalesTemp (BillNo) values (" + std::to_string(100 + bills++) + ")");
    till->commit_trans();
  });
  EXPECT_THAT(shop.run("press cmdUpdate"), ElementsAre(HasSubstr("Records Updated")));
  EXPECT_GE(bills, 10) << "five quantities, four transactions, and the read between them";
  EXPECT_EQ(shop.sql("select count(*) from SalesTemp where BillNo>=100")[0][0], bills);
}

TEST(OptimumStockStatements, ReadWordForWord) {
  const std::string head =
      "Select S.icode,S.iname,S.mrp,sum(S.qty),I.supplier,round(sum(S.qty) * 12.5/100,0) from "
      "sales "
      "S Left join items I On S.Icode=I.ICode where S.billdate>='a' and S.billdate<='b'";
  const std::string group = " group by S.icode,S.iname,S.mrp,I.supplier order by S.icode";
  EXPECT_EQ(frmOptimumStock::sql({{"a", "b"}, "12.5", "ALL SUPPLIER"}), head + group);
  EXPECT_EQ(frmOptimumStock::sql({{"a", "b"}, "12.5", "O'X"}),
            head + " and I.Supplier='O''X'" + group);
}

}  // namespace
}  // namespace tela::testing
