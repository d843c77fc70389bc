// The bill lists besides the daily one, over a few bills whose figures can be checked by hand.
#include "screens/bill_sales/bill_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string> bills(const Json& state) {
  std::vector<std::string> numbers;
  for (const Json& row : state["grids"]["MSHF"]["cells"]) numbers.push_back(row[0]);
  numbers.erase(numbers.begin());
  return numbers;
}

class BillLists : public ::testing::Test {
 protected:
  BillLists() {
    shop.add({.number = 11,
              .date = "2024-01-04",
              .time = "14:05:09",
              .net = 110,
              .discount = 10,
              .total = 100,
              .cash = 999,
              .card = 30.25,
              .mobile = 20});
    shop.add({.number = 12,
              .counter = 2,
              .staff = "O'Neil",
              .type = "CREDIT BILL",
              .net = 300,
              .total = 300,
              .cash = 50});
    shop.add({.number = 13,
              .counter = 2,
              .type = "STAFF BILL",
              .net = 200,
              .total = 200,
              .cash = 7,
              .meals = 40});
    shop.add({.number = 14, .date = "2024-01-06", .type = "HOME DELIVERY", .total = 400});
  }

  // The text of the message with which the script's answer began.
  std::string said(const std::string& script) {
    return Json::parse(shop.run(script).at(0)).at("message").at("text");
  }

  Shop shop;
};

const std::string kPeriod = "set DTPicker1 04/01/2024\nset DTPicker2 06/01/2024\n";

TEST_F(BillLists, MonthlyListsInThreeOrdersWithBothEndsOfThePeriod) {
  shop.add({.number = 15, .date = "2024-01-03", .total = 1});
  shop.add({.number = 16, .date = "2024-01-07", .total = 1});
  shop.sql("update SalesTemp set Total=150 where BillNo=14");
  shop.run("open frmmonthlySR\nset DTP1 04/01/2024\nset DTP2 06/01/2024\npick Combo1 ALL COUNTER");
  EXPECT_THAT(bills(shop.show("press cmdView")), ElementsAre("11", "12", "13", "14"));
  EXPECT_THAT(bills(shop.show("press cmdAss")), ElementsAre("11", "14", "13", "12"));
  const Json state = shop.show("press CmdDesc");
  EXPECT_THAT(bills(state), ElementsAre("12", "13", "14", "11"));
  EXPECT_EQ(state["controls"]["lStart"], "11") << "the lowest bill, whatever the order";
  EXPECT_EQ(state["controls"]["lEnd"], "14");
  EXPECT_EQ(bills(shop.show("pick Combo1 COUNTER-2\npress cmdAss")).size(), 2U);
}

TEST_F(BillLists, MonthlyShowsTenThousandBillsAndNoMore) {
  for (int digit = 0; digit < 10; ++digit) shop.add({.number = digit, .date = "2023-12-01"});
  shop.sql(
      "insert into SalesTemp (BillNo,BillDate,Total,CashPaid) select "
      "1000+a.BillNo*1000+b.BillNo*100+c.BillNo*10+d.BillNo,'01/Feb/2024',1,0 from SalesTemp a,"
      "SalesTemp b,SalesTemp c,SalesTemp d where a.BillNo<10 and b.BillNo<10 and c.BillNo<10 and "
      "d.BillNo<10");
  shop.run("open frmmonthlySR\nset DTP1 01/02/2024\nset DTP2 02/02/2024\npick Combo1 ALL COUNTER");
  const Form& form = shop.state().windows.find("frmmonthlySR")->form();
  shop.run("press cmdView");
  EXPECT_EQ(form.text("lTotalBills"), "10000");
  EXPECT_EQ(form.grid("MSHF").Rows(), 10001);

  shop.add({.number = 99999, .date = "2024-02-02"});
  EXPECT_EQ(said("press CmdDesc"), "Too Many Records - Please Select Minimum Period");
  EXPECT_EQ(form.grid("MSHF").TextMatrix(0, 0), "") << "empty, without its headings";
  EXPECT_EQ(form.grid("MSHF").Rows(), 2);
  EXPECT_EQ(form.text("lTotalBills"), "10000") << "as it was";
}

TEST_F(BillLists, CashSalesLeaveCreditOutAndDeriveTheCash) {
  Json state = shop.show("open frmDailyCashsales\npick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_THAT(bills(state), ElementsAre("13"));
  EXPECT_EQ(state["controls"]["Text1"], "160.00") << "not the stored cash of the other type";
  EXPECT_EQ(state["controls"]["lEnd"], "13");

  state =
      shop.show("open frmMonthlyCashSales\n" + kPeriod + "pick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_THAT(bills(state), ElementsAre("11", "13"));
  EXPECT_EQ(state["controls"]["lEnd"], "13") << "the delivery does not count";
  EXPECT_EQ(state["controls"]["Text1"], "209.75");
  EXPECT_EQ(shop.show("pick Combo1 COUNTER-1\npress cmdView")["controls"]["lEnd"], "11");
}

TEST_F(BillLists, CreditSalesShowTheStoredCash) {
  const Json state = shop.show("open frmMonthlyCreditSales\n" + kPeriod +
                               "pick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_THAT(bills(state), ElementsAre("12", "14"));
  EXPECT_EQ(state["controls"]["tTotalAmount"], "700.00");
  EXPECT_EQ(state["controls"]["Text1"], "50.00");
  EXPECT_THAT(bills(shop.show("pick Combo1 COUNTER-2\npress cmdView")), ElementsAre("12"));
}

TEST_F(BillLists, UserReportOffersWhoeverBilled) {
  Json state = shop.show("open frmUserReport\nset DTP1 04/01/2024");
  EXPECT_EQ(state["items"]["Combo1"], Json::parse(R"(["ANU","O'Neil"])"));
  EXPECT_EQ(said("press cmdView"), "Please Select The User Name");
  EXPECT_THAT(shop.run("pick Combo1 O'Neil\npress cmdView"),
              ElementsAre(R"({"pointer":"busy"})", R"({"pointer":"normal"})"));
  EXPECT_THAT(bills(shop.show()), ElementsAre("12"));
  state = shop.show("pick Combo1 ANU\npress cmdView");
  EXPECT_THAT(bills(state), ElementsAre("11", "13"));
  EXPECT_EQ(state["controls"]["lTotalBills"], "2");
  EXPECT_EQ(state["controls"]["Text1"], "56.75") << "49.75 derived and 7 stored";
}

TEST_F(BillLists, LimitsAreNumbersInTheirOrder) {
  for (const auto& [screen, missing, reversed] :
       {std::tuple("fBillToBill", "Please Enter The Bill No.",
                   "The Start Bill No is Greater Than The End Bill No"),
        std::tuple("frmSalesByValue", "Please Enter The Bill Value",
                   "The Start Value is Greater Than The End Value")}) {
    shop.run(std::string("open ") + screen);
    EXPECT_EQ(said("set Text1 1 or 1=1\npress cmdView"), missing);
    EXPECT_EQ(said("set Text1 100\nset Text2 0.5\npress cmdView"), missing);
    EXPECT_THAT(shop.run("set Text2 99\npress cmdView"), ElementsAre(HasSubstr(reversed)));
    EXPECT_THAT(shop.run("press cmdprint"),
                ElementsAre(HasSubstr("The Start Bill Is Greater Than The End Bill"),
                            R"({"focus":"Text1"})"));
    EXPECT_EQ(shop.show()["grids"]["MSHF"]["cells"][0][0], "BILL NO") << "the list stays";
    EXPECT_THAT(
        shop.run("key Text1 enter\nkey Text2 up\nkey Text2 enter"),
        ElementsAre(R"({"focus":"Text2"})", R"({"focus":"Text1"})", R"({"focus":"cmdView"})"));
  }
}

TEST_F(BillLists, BothLimitsCount) {
  Json state = shop.show("open fBillToBill\nset Text1 11\nset Text2 13\npress cmdView");
  EXPECT_THAT(bills(state), ElementsAre("11", "12", "13"));
  EXPECT_EQ(state["controls"]["Text3"], "106.75") << "cash: 49.75 derived, 50 and 7 stored";
  state = shop.show(
      "open frmSalesByValue\nset DTP1 04/01/2024\nset DTP2 05/01/2024\n"
      "set Text1 99.99\nset Text2 200\npress cmdView");
  EXPECT_THAT(bills(state), ElementsAre("11", "13"));
  EXPECT_EQ(state["controls"]["lStart"], "11");
  EXPECT_EQ(state["controls"]["lTotalBills"], "2");
}

TEST_F(BillLists, AFailedListByNumberSaysSoInItsOwnWords) {
  shop.sql("drop table SalesTemp");
  shop.run("open fBillToBill\nset Text1 1\nset Text2 2");
  EXPECT_EQ(said("press cmdView"), "Please Select The Valied Records");
}

// One preview for each staging table and for each screen with values of its own, whole.
TEST_F(BillLists, PreviewsStageTheGridAsItStands) {
  shop.sql("update SalesTemp set MobilePay=null where BillNo=13");
  const auto staged = [&](const std::string& script, const std::string& table) {
    EXPECT_THAT(shop.run(script).back(), HasSubstr(R"("query":"SELECT * FROM )" + table));
    return shop.sql("select * from " + table);
  };
  EXPECT_EQ(staged("open frmDailyCashsales\nset DTPicker1 04/01/2024\npick Combo1 COUNTER-1\n"
                   "press cmdView\npress cmdprint",
                   "fDailyCashS"),
            Json::parse(R"([["2024-01-04","COUNTER-1",1,11,"2024-01-04","14:05:00",
                             110,10,100,49.75]])"));
  EXPECT_EQ(staged("open frmMonthlyCashSales\n" + kPeriod +
                       "pick Combo1 ALL COUNTER\npress cmdView\npress cmdprint",
                   "MonthCashSales"),
            Json::parse(R"([["2024-01-04","2024-01-06","ALL COUNTER",1,11,"2024-01-04","14:05:00",
                             110,10,100,49.75],
                            ["2024-01-04","2024-01-06","ALL COUNTER",2,13,"2024-01-05","10:00:00",
                             200,0,200,0]])"));
  EXPECT_EQ(staged("open frmMonthlyCreditSales\n" + kPeriod +
                       "pick Combo1 COUNTER-2\npress cmdView\npress cmdprint",
                   "SalesPrint"),
            Json::parse(R"([["2024-01-04","2024-01-06","COUNTER-2",12,"2024-01-05",
                             300,0,300,50,0,0,0,0]])"));
  EXPECT_EQ(staged("open frmUserReport\npick Combo1 O'Neil\npress cmdView\npress cmdPreview",
                   "SalesPrint"),
            Json::parse(R"([["2024-01-05","2024-01-05","O'Neil",12,"2024-01-05",
                             300,0,300,50,0,0,0,0]])"));
  const Json thirteen = Json::parse("[13,13,13,\"2024-01-05\",200,0,200,7,0,40,null,0]");
  EXPECT_EQ(staged("open fBillToBill\nset Text1 13\nset Text2 13\npress cmdView\nanswer ok\n"
                   "press cmdprint",
                   "BilltoBillRep"),
            Json::array({thirteen}));
  EXPECT_EQ(staged("open frmSalesByValue\nset DTP1 04/01/2024\nset Text1 50.5\nset Text2 100\n"
                   "press cmdView\nanswer ok\npress cmdprint",
                   "BilltoBillRep"),
            Json::parse(R"([[50.5,100,11,"2024-01-04",110,10,100,49.75,30.25,0,20,0]])"));
}

TEST_F(BillLists, TheListsBetweenLimitsAskWhenTheRowsAreStagedAlready) {
  shop.run("open fBillToBill\nset Text1 11\nset Text2 12\npress cmdView");
  EXPECT_EQ(shop.run("press cmdprint").size(), 1U) << "cancelled: no preview";
  EXPECT_EQ(shop.sql("select BillNo from BilltoBillRep"), Json::parse("[[11],[12]]"));
}

// What the transactions of a preview leave behind when a row cannot be staged: the tables that are
// emptied in a transaction of its own are empty, the others keep their old rows.
TEST_F(BillLists, AmountsThatAreTooWideFailThePreview) {
  shop.run(
      "open frmmonthlySR\nset DTP1 04/01/2024\npick Combo1 ALL COUNTER\npress cmdView\n"
      "press cmdPreview\nopen fBillToBill\nset Text1 11\nset Text2 13\npress cmdView\n"
      "press cmdprint");
  EXPECT_EQ(shop.sql("select count(*) from SalesPrint"), Json::parse("[[3]]"));
  shop.sql("update SalesTemp set MealsPaid=123456 where BillNo=12");

  EXPECT_THAT(shop.run("press cmdView\npress cmdprint").back(),
              HasSubstr(R"(Row 2, column \"PASS\": the number is too wide)"));
  EXPECT_EQ(shop.sql("select count(*) from BilltoBillRep"), Json::parse("[[3]]"));
  EXPECT_THAT(shop.run("switch frmmonthlySR\npress cmdView\npress cmdPreview").back(),
              HasSubstr(R"(Row 2, column \"PASS\": the number is too wide)"));
  EXPECT_EQ(shop.sql("select count(*) from SalesPrint"), Json::parse("[[0]]"));
}

TEST_F(BillLists, AReversedPeriodIsNoPreviewOfCashAndCredit) {
  for (const char* screen : {"frmMonthlyCashSales", "frmMonthlyCreditSales"}) {
    const std::string reversed = std::string("open ") + screen + "\nset DTPicker2 04/01/2024\n";
    shop.run(reversed);
    EXPECT_THAT(shop.run("press cmdprint"),
                ElementsAre(HasSubstr("The Start Date Is Greater Than The End Date"),
                            R"({"focus":"DTPicker1"})"));
    EXPECT_EQ(said("press cmdView"), "Please Select the Counter");
  }
}

TEST(BillStatements, ReadWordForWord) {
  const std::string plain =
      "Select billno,billdate,BillTime,netamount,DiscAmount,Total,Total-(CardPaid+MealsPaid+"
      "MobilePay+PointsUsed),CardPaid,MealsPaid,MobilePay,PointsUsed from salestemp where ";
  const std::string till = " and BillType Not in ('CREDIT BILL','HOME DELIVERY')";
  const BillInputs all{.period = {"a", "b"}, .filter = "O'Neil ", .first = "1", .last = "2.50"};
  BillInputs third = all;
  third.counter = "3";
  const auto sql = [](const BillList& list, const BillInputs& inputs) {
    return BillListReport::sql(list, inputs);
  };
  EXPECT_EQ(sql(frmDailyCashsales(), all),
            plain + "billdate='a'" + till + " order by billdate,billno");
  EXPECT_EQ(sql(frmDailyCashsales(), third),
            plain + "billdate='a' " + till + " AND counter=3 order by billdate,billno");
  EXPECT_EQ(sql(frmMonthlyCashSales(), all),
            plain + "billdate>='a' AND billdate<='b'" + till + " order by billdate,billno");
  EXPECT_EQ(BillListReport::range_sql(frmMonthlyCashSales(), third),
            "Select isnull(min(billno),0),isnull(max(BillNo),0) from SalesTemp where "
            "billdate>='a' AND billdate<='b'" +
                till + " AND counter=3");
  EXPECT_EQ(sql(frmMonthlyCreditSales(), third),
            "Select billno,billdate,BillTime,netamount,DiscAmount,Total,CashPaid,CardPaid,MealsPaid"
            ",MobilePay,PointsUsed from salestemp where BillType in ('CREDIT BILL','HOME DELIVERY')"
            " AND billdate>='a' AND BILLDATE<='b' AND counter=3 order by billno");
  EXPECT_THAT(sql(frmUserReport(), all),
              HasSubstr("STR(PointsUsed,8,2) from salestemp where billdate>='a' AND BILLDATE<='b' "
                        "AND Staff='O''Neil ' order by billno"));
  const std::string split =
      "select billno,billdate,BillTime,NetAmount,DiscAmount,Total,(case when BillType IN "
      "('CASH/CREDIT','POINTS SALES') then Total-(CardPaid+MealsPaid+MobilePay+PointsUsed) else "
      "CashPaid end),str(CardPaid,8,2),str(MealsPaid,8,2),MobilePay,STR(PointsUsed,8,2) from "
      "salestemp where ";
  EXPECT_EQ(sql(fBillToBill(), all), split + "billno>=1  and billno<=2.50 order by billno");
  EXPECT_EQ(
      sql(frmSalesByValue(), all),
      split + "billdate>='a' and BillDate<='b' and Total>=1  and Total<=2.50 order by billno");
  EXPECT_EQ(sql(frmmonthlySR(), third).substr(sql(frmmonthlySR(), third).find(" where ")),
            " where billdate>='a' AND BILLDATE<='b' AND counter=3 order by billno");
  EXPECT_THAT(BillListReport::range_sql(frmmonthlySR(), third, 0),
              ::testing::EndsWith("BILLDATE<='b'  AND counter=3"));
  EXPECT_THAT(BillListReport::range_sql(frmmonthlySR(), third, 2),
              ::testing::EndsWith("BILLDATE<='b' AND counter=3"));
}

}  // namespace
}  // namespace tela::testing
