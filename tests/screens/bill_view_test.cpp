// The bill view: what it shows, how it walks, and what it prints.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class BillView : public ::testing::Test {
 protected:
  BillView() {
    shop.add({.number = 10,
              .time = "21:05:09",
              .staff = "ANU  ",
              .type = "CREDIT BILL ",
              .net = 100,
              .discount = 2,
              .total = 98,
              .cash = 50,
              .card = 20,
              .meals = 8,
              .mobile = 15,
              .points = 5,
              .lines = {{1, "Rice", 50, 45, 30, 2},
                        {1, "Rice", 50, 45, 30, -0.5},
                        {1, "Rice", 50, 44, 30, 1}}});
    shop.add({.number = 12, .total = 7, .lines = {{2, "Soap", 8, 7, 5, 1}}});
    shop.state().SaleBillNo = 10;
    shop.run("open FrmBillView");
  }

  Shop shop;
};

TEST_F(BillView, ShowsTheBillWithItsLinesMerged) {
  const Json state = shop.show();
  const Json& cells = state["grids"]["MSHF"]["cells"];
  EXPECT_EQ(cells[1], Json::parse(R"(["1","1","Rice","50.00","44.00","1.00","44.00"])"));
  EXPECT_EQ(cells[2], Json::parse(R"(["2","1","Rice","50.00","45.00","1.50","67.50"])"));
  EXPECT_EQ(cells.size(), 3U);
  const Json& boxes = state["controls"];
  EXPECT_EQ(boxes["tTime"], "09:05:09 PM");
  EXPECT_EQ(boxes["tUser"], "ANU");
  EXPECT_EQ(boxes["tBillType"], "CREDIT BILL");
  EXPECT_EQ(boxes["tCashPaid"], "50.00") << "as stored";
  EXPECT_EQ(boxes["tTotalPaid"], "98.00");
  EXPECT_EQ(boxes["tTotalQty"], "2.50");
  EXPECT_EQ(boxes["tMrpTotal"], "125.00");
  EXPECT_EQ(boxes["tSaved"], "27.00");
}

TEST_F(BillView, WalksOverAGapInTheNumbers) {
  const Json gap = shop.show("press cmdNext")["controls"];
  EXPECT_EQ(gap["tBillNo"], "11");
  EXPECT_EQ(gap["tDate"], "");
  EXPECT_EQ(gap["tTotalQty"], "0");
  EXPECT_EQ(gap["tSaved"], "0.00");
  EXPECT_EQ(shop.show("press cmdNext")["controls"]["tTotal"], "7.00");
  EXPECT_EQ(shop.show("set tSearch 0\npress CmdPrevious")["controls"]["tBillNo"], "-1");
  EXPECT_EQ(shop.show("press cmdRefresh")["controls"]["tBillNo"], "10")
      << "the bill of the last drill-down";
}

TEST_F(BillView, RefusesWhatIsNoBillNumber) {
  EXPECT_THAT(shop.run("type tSearch 12x\npress cmdView"),
              ElementsAre(HasSubstr("Please Enter The Bill No"), R"({"focus":"tSearch"})"));
  shop.sql("drop table Sales");
  EXPECT_THAT(shop.run("set tSearch 10\npress cmdView"),
              ElementsAre(HasSubstr(R"("No Bill No Found","icon":"critical")")));
  EXPECT_EQ(shop.show()["controls"]["tUser"], "");
}

TEST_F(BillView, PrintsByThePrinterSettings) {
  const std::string question = "DO YOU WANT TO PRINT THE LAST BILL- ";
  shop.state().PortNo = "LPT1";
  shop.state().PrintNo = 3;
  EXPECT_THAT(shop.run("answer ok\npress cmdprint"), ElementsAre(HasSubstr(question)));
  EXPECT_EQ(shop.printed("LPT1"), "");
  shop.state().PrintNo = 1;
  EXPECT_THAT(shop.run("press cmdprint"), ElementsAre(HasSubstr(R"("answer":"cancel")")));
  EXPECT_EQ(shop.printed("LPT1"), "");
  shop.run("answer ok\npress cmdprint");
  EXPECT_THAT(shop.printed("LPT1"), HasSubstr("Rice                    50.00   45.00  2   67.50"));
  EXPECT_THAT(shop.printed("LPT1"), HasSubstr("AMOUNT PAID    50.00   \r\n"));
}

}  // namespace
}  // namespace tela::testing
