// Counter sales, sale returns and mobile payments, over a few bills whose figures can be checked by
// hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "screens/sales_analysis/frmDetailSales1.h"
#include "screens/sales_analysis/frmMobilePayDetails.h"
#include "screens/sales_analysis/frmSaleReturn.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string> row(const Json& state, std::size_t number, const char* grid = "MSHF") {
  return state["grids"][grid]["cells"].at(number);
}

class CounterSales : public ::testing::Test {
 protected:
  CounterSales() {
    shop.add({.number = 1, .net = 110, .discount = 10, .total = 100, .cash = 5, .card = 30.255});
    shop.add({.number = 2,
              .date = "2024-01-06",
              .type = "points sales ",
              .net = 50,
              .total = 50,
              .meals = 1,
              .mobile = 2,
              .points = 3});
    shop.add({.number = 3,
              .counter = 7,
              .type = "HOME DELIVERY",
              .net = 20,
              .total = 20,
              .cash = 4,
              .card = 6});
    shop.add({.number = 4, .counter = 7, .type = "STAFF BILL", .net = 8, .total = 8, .cash = 1});
    shop.run("open frmDetailSales1");
  }

  Shop shop;
};

TEST_F(CounterSales, ShowsTillAndCreditBillsInTwoGrids) {
  const Json state = shop.show("set DTP2 06/01/2024\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_THAT(row(state, 0), ElementsAre("S.No", "COUNTER", "AMOUNT", "Discount", "TOTAL", "CASH",
                                         "CARD", "PASS", "Mobile Pay", "POINTS"));
  EXPECT_THAT(row(state, 1), ElementsAre("1", "1", "160.00", "10.00", "150.00", "113.75", "30.26",
                                         "1.00", "2.00", "3.00"));
  // The type that neither grid names is in both, with the derived cash above and the stored below.
  EXPECT_THAT(row(state, 2), ElementsAre("2", "7", "8.00", "0.00", "8.00", "8.00", "0.00", "0.00",
                                         "0.00", "0.00"));
  EXPECT_EQ(row(state, 3)[0], "") << "one blank row stands behind";
  EXPECT_EQ(state["grids"]["MSHF1"]["rows"], 3);
  EXPECT_EQ(row(state, 0, "MSHF1"), row(state, 0));
  EXPECT_THAT(row(state, 1, "MSHF1"), ElementsAre("1", "7", "28.00", "0.00", "28.00", "5.00",
                                                  "6.00", "0.00", "0.00", "0.00"));
  EXPECT_EQ(state["grids"]["MSHF"]["colours"], Json::object());
  const Json& boxes = state["controls"];
  EXPECT_EQ(boxes["tTotalAmount"], "158.00");
  EXPECT_EQ(boxes["Text1"], "121.75");
  EXPECT_EQ(boxes["Text4"], "3.00");
  EXPECT_EQ(boxes["Text9"], "28.00");
  EXPECT_EQ(boxes["Text5"], "5.00");
  EXPECT_EQ(boxes["Text6"], "6.00");
  EXPECT_EQ(boxes["tCrMobilePay"], "0.00");
}

TEST_F(CounterSales, ShowsWhatCreditCustomersPaidAsAPlainNumber) {
  EXPECT_EQ(shop.show("press cmdView")["controls"]["tCreditPaid"], "0.00");
  shop.sql("insert into Cust_Trans values('05/Jan/2024',2,-1200.5)");
  shop.sql("insert into Cust_Trans values('05/Jan/2024',1,-7)");
  shop.sql("insert into Cust_Trans values('06/Jan/2024',2,-7)");
  EXPECT_EQ(shop.show("press cmdView")["controls"]["tCreditPaid"], "1200.5");
  shop.sql("insert into Cust_Trans values('05/Jan/2024',2,1200.5)");
  EXPECT_EQ(shop.show("press cmdView")["controls"]["tCreditPaid"], "0");
}

TEST_F(CounterSales, RefusesAReversedPeriodAndShowsAnEmptyOne) {
  shop.run("press cmdView");
  EXPECT_THAT(
      shop.run("set DTP2 04/01/2024\npress cmdView"),
      ElementsAre(HasSubstr("The From date is Gretater Than the To Date"), R"({"focus":"DTP1"})"));
  EXPECT_EQ(shop.show()["grids"]["MSHF1"]["rows"], 3) << "the grids stay";
  const Json state =
      shop.show("set DTP1 01/02/2024\nset DTP2 01/02/2024\nkey DTP1 enter\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 2);
  EXPECT_EQ(state["grids"]["MSHF1"]["rows"], 2);
  EXPECT_EQ(state["controls"]["Text8"], "0.00");
}

class SaleReturns : public ::testing::Test {
 protected:
  SaleReturns() {
    shop.add(
        {.number = 101, .lines = {{1, "Amma's Rice ", 50, 45, 30, -2}, {2, "Soap", 12, 10, 8, 3}}});
    shop.add({.number = 99,
              .date = "2024-01-06",
              .counter = 2,
              .lines = {{1, "Rice", 50, 45, 30, -0.125}, {3, "Salt", 5, 5, 4, 0}}});
    shop.run("open frmSaleReturn\nset DTP2 06/01/2024");
  }

  Shop shop;
};

TEST_F(SaleReturns, ListsTheLinesOfNegativeQuantity) {
  EXPECT_THAT(shop.run("key DTP2 enter\nkey Combo1 enter"),
              ElementsAre(R"({"focus":"Combo1"})", HasSubstr("\"Please Select the counter\""),
                          R"({"focus":"Combo1"})"));
  Json state = shop.show("pick Combo1 ALL COUNTER\nkey Combo1 enter");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4) << "one blank row stands behind";
  EXPECT_THAT(row(state, 1), ElementsAre("1", "1", "Rice", "50.00", "45.00", "-0.13", "-5.63",
                                         "99.00", "06/01/24"));
  EXPECT_EQ(row(state, 2)[2], "Amma's Rice");
  EXPECT_EQ(state["controls"]["tTotalQty"], "-2.13");
  EXPECT_EQ(state["controls"]["tTotal"], "-95.63");
  EXPECT_EQ(state["grids"]["MSHF"]["colours"],
            Json::parse(R"({"1":[1,8,16777215],"2":[1,8,14199442]})"));

  state = shop.show("pick Combo1 COUNTER-2\npress cmdView");
  EXPECT_EQ(row(state, 1)[7], "99.00");
  EXPECT_EQ(state["controls"]["tTotal"], "-5.63");

  EXPECT_THAT(shop.run("set Combo1 COUNTER-5\npress cmdView"),
              ElementsAre(HasSubstr(R"("PLEASE SELECT THE COUNTER","icon":"information")")));
  state = shop.show();
  EXPECT_EQ(row(state, 0)[0], "S No") << "empty, with its headings";
  EXPECT_EQ(row(state, 1)[0], "");
  EXPECT_EQ(state["controls"]["tTotal"], "0");
}

TEST_F(SaleReturns, ADoubleClickOpensTheBillOfTheLine) {
  shop.run("pick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_TRUE(shop.run("doubleclick MSHF 3").empty());
  EXPECT_THAT(shop.run("doubleclick MSHF 2"), ElementsAre(R"({"opened":"FrmBillView"})"));
  EXPECT_EQ(shop.show()["controls"]["tBillNo"], "101");
}

// Whatever cannot be staged is passed over: the preview opens on the rest.
TEST_F(SaleReturns, PreviewStagesWhatItCan) {
  shop.run("pick Combo1 COUNTER-1\npress cmdView\npress cmdprint");
  const Json first = Json::parse(R"([["2024-01-05","2024-01-06","COUNTER-1",1,1,"Amma's Rice",
                                      50,45,-2,-90,101,"2024-01-05"]])");
  EXPECT_EQ(shop.sql("select * from fSaleReturn"), first);

  EXPECT_THAT(
      shop.run("set DTP1 07/01/2024\npress cmdprint"),
      ElementsAre(HasSubstr("The Start Date Is Greater Than The End Date"), R"({"focus":"DTP1"})"));
  EXPECT_EQ(shop.sql("select * from fSaleReturn"), first);

  shop.add({.number = 7, .lines = {{4, "Gold", 1e6, 1e6, 1, -1}}});
  EXPECT_THAT(shop.run("set DTP1 05/01/2024\npress cmdView\npress cmdprint"),
              ElementsAre(HasSubstr(R"("report":"fSaleReturnPri.rpt","query":"SELECT * FROM )"
                                    R"(fSaleReturn","rows":1)")));
  EXPECT_EQ(row(shop.show(), 1)[3], "********");
  EXPECT_EQ(shop.sql("select SNo,iName from fSaleReturn"), Json::parse(R"([[2,"Amma's Rice"]])"));
}

TEST(MobilePay, SumsByKindForOneCounterOrAll) {
  Shop shop;
  shop.add({.number = 1, .mobile = 10.25});
  shop.add({.number = 2, .type = "CREDIT BILL", .mobile = 5});
  shop.add({.number = 3, .date = "2024-01-06", .counter = 2, .mobile = 100});
  shop.add({.number = 4});
  shop.sql("update SalesTemp set MobilePayType=' UPI ' where BillNo<4");
  shop.run("open frmMobilePayDetails\nset DTP2 06/01/2024");
  EXPECT_THAT(shop.run("press cmdView"),
              ElementsAre(HasSubstr("Please Select The Counter No."), R"({"focus":"Combo1"})"));
  Json state = shop.show();
  EXPECT_EQ(row(state, 0)[0], "") << "a refused listing leaves an empty grid";

  state = shop.show("pick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_THAT(row(state, 0), ElementsAre("S/N", "PAYMENT TYPE", "AMOUNT"));
  EXPECT_THAT(row(state, 1), ElementsAre("1", "", "0.00"));
  EXPECT_THAT(row(state, 2), ElementsAre("2", "UPI", "115.25"));
  EXPECT_EQ(state["controls"]["tTotalAmount"], "115.25");
  EXPECT_EQ(shop.show("pick Combo1 COUNTER-2\npress cmdView")["controls"]["tTotalAmount"],
            "100.00");
  state = shop.show("pick Combo1 COUNTER-6\npress cmdView");
  EXPECT_EQ(state["controls"]["tTotalAmount"], "0");
  EXPECT_EQ(state["controls"]["tCounter"], "6");
}

TEST(SalesAnalysisStatements, ReadWordForWord) {
  const Period period{"a", "b"};
  const std::string counters =
      "select Counter,SUM(netamount)'NET AMT',SUM(DiscAmount)'Discount',SUM(Total),SUM(Total-("
      "CardPaid+MealsPaid+MobilePay+PointsUsed)),";
  EXPECT_EQ(frmDetailSales1::till_sql(period),
            counters +
                "SUM(CardPaid),SUM(MealsPaid),sum(MobilePay),SUM(PointsUsed) from salestemp where "
                "billdate>='a' AND BILLDATE<='b' and BillType  Not in ('CREDIT BILL','HOME "
                "DELIVERY') GROUP BY Counter ORDER by counter");
  EXPECT_EQ(frmDetailSales1::credit_sql(period),
            counters +
                "SUM(CashPaid),SUM(CardPaid),SUM(MealsPaid),sum(MobilePay),SUM(PointsUsed) from "
                "salestemp where billdate>='a' AND BILLDATE<='b' AND  BillType NOT IN "
                "('CASH/CREDIT','POINTS SALES') GROUP BY Counter ORDER by counter");
  EXPECT_EQ(frmDetailSales1::payments_sql(period),
            "Select sum(Amount) from Cust_Trans where TransDate>='a' AND TransDate<='b' AND "
            "TransType=2");
  const std::string head =
      "select icode'CODE',iname'ITEM NAME',STR(mrp,8,2)'M.R.P',STR(salerate,8,2)'SALE RATE',"
      "qty'QTY',amount'AMOUNT',billno'Bill No',";
  const std::string where = " from sales where billdate>='a' and billdate<='b' and qty<0 ";
  EXPECT_EQ(frmSaleReturn::sql({period, 0}),
            "select icode,iname,mrp,salerate,qty,amount,billno,billdate" + where +
                " order by billno,iname");
  EXPECT_EQ(frmSaleReturn::sql({period, 1}),
            head + "BILLDATE" + where + "and counter=1 order by BILLNO,iname");
  EXPECT_EQ(frmSaleReturn::sql({period, 2}),
            head + "Billdate" + where + "and counter=2 order by billno,iname");
  EXPECT_EQ(frmSaleReturn::sql({period, 3}),
            head + "billdate" + where + "and counter=3 order by billno,iname");
  EXPECT_EQ(frmSaleReturn::sql({period, 4}),
            head + "BillDate" + where + "and counter=4 order by billno,iname");
  EXPECT_EQ(frmMobilePayDetails::sql({period, "4"}),
            "select MobilePayType,SUM(MobilePay) from salestemp where billdate>='a' AND "
            "BILLDATE<='b' AND counter=4 GROUP By MobilePayType order by MobilePayType");
}

}  // namespace
}  // namespace tela::testing
