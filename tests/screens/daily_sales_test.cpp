// The daily sales report, driven through its controls over bills whose figures can be checked by
// hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class DailySales : public ::testing::Test {
 protected:
  DailySales() {
    shop.add({.number = 101,
              .time = "14:05:09",
              .counter = 1,
              .net = 100,
              .discount = 10,
              .total = 90,
              .cash = 500,
              .card = 20.5,
              .meals = 5,
              .mobile = 14.25});
    shop.add({.number = 102,
              .time = "00:30:00",
              .counter = 2,
              .type = "CREDIT BILL",
              .net = 60.005,
              .total = 60,
              .cash = 25});
    shop.add({.number = 103,
              .counter = 2,
              .type = "points sales  ",
              .net = 100000,
              .total = 100000,
              .card = 100000});
    shop.add({.number = 104, .date = "2024-01-06", .counter = 2, .total = 7});
    shop.run("open frmDailyS_R");
  }

  std::vector<std::string> row(const Json& state, int number) {
    return state["grids"]["MSHF"]["cells"][static_cast<std::size_t>(number)];
  }

  Shop shop;
};

TEST_F(DailySales, OpensWithTodayItsHeadingsAndNoRows) {
  const Json state = shop.show();
  EXPECT_EQ(state["caption"], " DAILY SALES REPORT");
  EXPECT_EQ(state["controls"]["DTPicker1"], "05/01/2024");
  EXPECT_EQ(state["controls"]["Combo1"], "");
  EXPECT_EQ(state["controls"]["Text4"], "0.00");
  EXPECT_EQ(state["items"]["Combo1"], Json::parse(R"(["COUNTER-1","COUNTER-2","COUNTER-3",
            "COUNTER-4","COUNTER-5","ALL COUNTER"])"));
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 2);
  EXPECT_EQ(state["grids"]["MSHF"]["colours"], Json::object());
  EXPECT_THAT(row(state, 0), ElementsAre("BILL NO", "BILL DATE", "TIME", "AMOUNT", "Discount",
                                         "TOTAL", "CASH", "CARD", "PASS", "Mobile Pay", "POINTS"));
}

TEST_F(DailySales, ListsADayWithThePaymentSplit) {
  const Json state = shop.show("pick Combo1 ALL COUNTER\nkey Combo1 enter");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_THAT(row(state, 1), ElementsAre("101", "05/01/2024", "02:05 PM", "100.00", "10.00",
                                         "90.00", "50.25", "20.50", "5.00", "14.25", "0.00"));
  // A credit bill shows its stored cash.
  EXPECT_THAT(row(state, 2), ElementsAre("102", "05/01/2024", "12:30 AM", "60.01", "0.00", "60.00",
                                         "25.00", "0.00", "0.00", "0.00", "0.00"));
  // What does not fit eight characters comes as asterisks, which count as 0.
  EXPECT_THAT(row(state, 3), ElementsAre("103", "05/01/2024", "10:00 AM", "0.00", "0.00", "0.00",
                                         "0.00", "********", "0.00", "0.00", "0.00"));
  const Json& controls = state["controls"];
  EXPECT_EQ(controls["lTotalBills"], "3");
  EXPECT_EQ(controls["lStart"], "101");
  EXPECT_EQ(controls["lEnd"], "103");
  EXPECT_EQ(controls["tTotalAmount"], "150.00");
  EXPECT_EQ(controls["Text1"], "75.25");
  EXPECT_EQ(controls["Text2"], "20.50");
  EXPECT_EQ(controls["tMobilePay"], "14.25");
  EXPECT_EQ(state["grids"]["MSHF"]["colours"],
            Json::parse(R"({"1":[0,10,16777215],"2":[0,10,14199442],"3":[0,10,16777215]})"));
}

TEST_F(DailySales, OneCounterIsTheLastCharacterOfWhatTheBoxHolds) {
  Json state = shop.show("pick Combo1 COUNTER-2\npress cmdView");
  EXPECT_EQ(state["controls"]["lTotalBills"], "2");
  EXPECT_EQ(state["controls"]["tCounter"], "2");
  state = shop.show("set Combo1 till 1\npress cmdView");
  EXPECT_EQ(state["controls"]["lTotalBills"], "1");
  EXPECT_EQ(row(state, 1)[0], "101");
}

TEST_F(DailySales, AnEmptyDayShowsTheHeadingAlone) {
  const Json state =
      shop.show("pick Combo1 ALL COUNTER\npress cmdView\nset DTPicker1 07/01/2024\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 1);
  EXPECT_EQ(row(state, 0)[0], "BILL NO");
  EXPECT_EQ(state["controls"]["lTotalBills"], "0");
  EXPECT_EQ(state["controls"]["lEnd"], "0");
  EXPECT_EQ(state["controls"]["lStart"], "101") << "its source cell is not there, so it stays";
  EXPECT_EQ(state["controls"]["Text1"], "0");
}

TEST_F(DailySales, ABlankCounterIsRefusedAndNothingElseChanges) {
  shop.run("pick Combo1 COUNTER-1\npress cmdView");
  EXPECT_THAT(shop.run("set Combo1   \nkey Combo1 enter"),
              ElementsAre(R"({"message":{"text":"Please Select The Counter No.","icon":"critical",)"
                          R"("buttons":"ok","title":"TELA MINI SUPER MARKET","answer":"ok"}})",
                          R"({"focus":"Combo1"})"));
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 2);
  EXPECT_EQ(shop.show()["controls"]["lTotalBills"], "1");
}

TEST_F(DailySales, EnterWalksAndRefreshStartsAfresh) {
  EXPECT_THAT(shop.run("key DTPicker1 enter"), ElementsAre(R"({"focus":"Combo1"})"));
  EXPECT_THAT(shop.run("set DTPicker1 06/01/2024\npress cmdRefresh"),
              ElementsAre(R"({"closed":"frmDailyS_R"})", R"({"opened":"frmDailyS_R"})"));
  EXPECT_EQ(shop.show()["controls"]["DTPicker1"], "05/01/2024");
}

TEST_F(DailySales, PreviewStagesTheGridAsItStands) {
  shop.run("pick Combo1 ALL COUNTER\npress cmdView\nset DTPicker1 06/01/2024");
  EXPECT_THAT(shop.run("press cmdprint").front(), HasSubstr(R"("answer":"cancel")"));
  EXPECT_EQ(shop.sql("select count(*) from SalesPrint"), Json::parse("[[0]]"));

  // The third bill's asterisks are no number, so the whole run fails and leaves no row.
  EXPECT_THAT(shop.run("answer ok\npress cmdprint").back(),
              HasSubstr(R"(Row 3, column \"CARD\": the number is too wide to be shown)"));
  EXPECT_EQ(shop.sql("select count(*) from SalesPrint"), Json::parse("[[0]]"));

  shop.run("set DTPicker1 05/01/2024\npick Combo1 COUNTER-1\npress cmdView");
  EXPECT_EQ(Json::parse(shop.run("answer ok\npress cmdprint").back())["preview"]["query"],
            "SELECT * FROM SalesPrint");
  EXPECT_EQ(shop.sql("select * from SalesPrint"),
            Json::parse(R"([["2024-01-05","2024-01-05","COUNTER-1",101,"2024-01-05",
                            100,10,90,50.25,20.5,5,14.25,0]])"));

  shop.run("press cmdRefresh\nanswer ok\npress cmdprint");
  EXPECT_EQ(shop.sql("select count(*) from SalesPrint"), Json::parse("[[0]]"));
}

TEST_F(DailySales, APaymentThatIsNullIsStagedAsNull) {
  shop.sql("update SalesTemp set MobilePay=null where BillNo=101");
  shop.run("pick Combo1 COUNTER-1\npress cmdView\nanswer ok\npress cmdprint");
  EXPECT_EQ(shop.sql("select * from SalesPrint")[0][11], nullptr);
}

TEST_F(DailySales, ATypedCounterReachesTheStatementAsADigitOnly) {
  for (const char* typed : {"al", "1 or 1=1 ", "COUNTER-\xC3\xA9"}) {
    EXPECT_THAT(shop.run(std::string("set Combo1 ") + typed + "\npress cmdView").back(),
                HasSubstr("is no counter"))
        << typed;
    EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 2);
  }
}

TEST_F(DailySales, ABillBeyondTheHandOverValueLeavesItAsItWas) {
  shop.add({.number = 105});
  shop.sql("update SalesTemp set BillNo=3000000000 where BillNo=105");
  shop.run("pick Combo1 ALL COUNTER\npress cmdView\ndoubleclick MSHF 1\nclose");
  EXPECT_THAT(shop.run("doubleclick MSHF 4"), ElementsAre(R"({"opened":"FrmBillView"})"));
  EXPECT_EQ(shop.show()["controls"]["tBillNo"], "101");
}

TEST_F(DailySales, ADoubleClickOpensTheBill) {
  shop.run("pick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_TRUE(shop.run("doubleclick MSHF 0").empty());
  EXPECT_THAT(shop.run("doubleclick MSHF 2"), ElementsAre(R"({"opened":"FrmBillView"})"));
  EXPECT_EQ(shop.show()["controls"]["tBillNo"], "102");
  // The bill view keeps its old bill while it is open.
  EXPECT_THAT(shop.run("switch frmDailyS_R\ndoubleclick MSHF 1"),
              ElementsAre(R"({"front":"frmDailyS_R"})", R"({"front":"FrmBillView"})"));
  EXPECT_EQ(shop.show()["controls"]["tBillNo"], "102");
}

}  // namespace
}  // namespace tela::testing
