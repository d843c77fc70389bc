// The item, category and profit lists over a few lines whose figures can be checked by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "screens/profit/frmBillWiseProfit.h"
#include "screens/profit/frmCatagoryProfit.h"
#include "screens/profit/frmMonthlyProfit.h"
#include "screens/sales_analysis/filtered_sales.h"
#include "screens/sales_analysis/frmItemSalesReport.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string> row(const Json& state, std::size_t number) {
  return state["grids"]["MSHF"]["cells"][number];
}

class ItemLists : public ::testing::Test {
 protected:
  ItemLists() {
    shop.add_item(1, "Rice", "GRAINS", "Amma's Kitchen", 10, 30);
    shop.add_item(2, "Farmer's Soap", "SOAPS", "Lily", 2.5, 8);
    // Rice was sold three times at one rate, one of them taken back, and once at another rate; the
    // soap came without a purchase rate.
    shop.add({.number = 1,
              .net = 100,
              .total = 100,
              .lines = {{1, "Rice ", 50, 45, 30, 2}, {2, "Farmer's Soap", 12, 10, 0, 1}}});
    shop.add({.number = 2,
              .counter = 2,
              .lines = {{1, "rice", 50, 45, 30, 1}, {1, "Rice", 50, 45, 30, -1}}});
    shop.add({.number = 3, .date = "2024-01-06", .lines = {{1, "Rice", 50, 48.5, 30, 0.125}}});
  }

  Shop shop;
};

TEST_F(ItemLists, ADayByItem) {
  const Json state = shop.show("open frmdailyIwiseSR\npick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_THAT(row(state, 1), ElementsAre("2", "Farmer's Soap", "12.00", "10.00", "1.00", "10.00"));
  EXPECT_THAT(row(state, 2), ElementsAre("1", "Rice", "50.00", "45.00", "2.00", "90.00"));
  EXPECT_EQ(state["controls"]["tTotalQty"], "3");
  EXPECT_EQ(state["controls"]["tTotal"], "100");
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["2"], Json::parse("[0,5,14199442]"));
}

TEST_F(ItemLists, APeriodByItemTakesTheListedCountersOnly) {
  const std::string period = "open frmItemSalesReport\nset DTP2 06/01/2024\n";
  Json state = shop.show(period + "pick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_THAT(row(state, 3), ElementsAre("3", "1", "Rice", "50.00", "48.50", "0.13", "6.06"));
  EXPECT_EQ(state["controls"]["tTotal"], "106.06");
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["1"], Json::parse("[1,6,16777215]"));
  EXPECT_THAT(shop.run("set Combo1 COUNTER-9\npress cmdView"),
              ElementsAre(HasSubstr("PLEASE SELECT THE COUNTER")));
  state = shop.show("pick Combo1 COUNTER-2\npress cmdView");
  EXPECT_THAT(row(state, 1), ElementsAre("1", "1", "Rice", "50.00", "45.00", "0.00", "0.00"));
}

TEST_F(ItemLists, NamesWithApostrophesReachTheFilterAndTheStaging) {
  Json state = shop.show(
      "open frmSupplierSales\nset DTP2 06/01/2024\npick Combo1 Amma's Kitchen\n"
      "press cmdDes");
  EXPECT_EQ(state["controls"]["lTotalRows"], "Total Rows = 2");
  EXPECT_EQ(row(state, 1)[5], "2.00");
  state = shop.show("open FrmCatagorysale\npick Combo1 SOAPS\npress cmdName");
  EXPECT_EQ(state["controls"]["tTotal"], "10.00");
  EXPECT_THAT(shop.run("answer ok\npress cmdprint").back(),
              HasSubstr(R"("report":"CatagoryReport.rpt","query":"SELECT * FROM SalesCatagory",)"
                        R"("rows":1)"));
  EXPECT_EQ(shop.sql("select * from SalesCatagory"),
            Json::parse(R"([["2024-01-05","2024-01-05",2,"Farmer's Soap",12,10,1,10,"SOAPS"]])"));
}

// Blanks are a text: they list what stands under no category.
TEST_F(ItemLists, BlanksAreTheEmptyCategory) {
  shop.add_item(3, "Loose", "", "");
  shop.add({.number = 4, .lines = {{3, "Loose", 10, 9, 8, 3}}});
  Json state = shop.show("open FrmCatagorysale\nset Combo1    \npress cmdView");
  EXPECT_EQ(state["controls"]["lTotalRows"], "Total Rows = 1");
  EXPECT_THAT(shop.run("set Combo1 \npress cmdView").front(),
              HasSubstr("Please Select the Category"));
}

TEST_F(ItemLists, AReversedPeriodIsNoProfitPreview) {
  shop.run("open frmMonthlyProfit\npress cmdView\npress cmdprint");
  const Json staged = shop.sql("select * from MonthlyProfit");
  ASSERT_FALSE(staged.empty());
  EXPECT_THAT(
      shop.run("set DTP1 06/01/2024\npress cmdprint"),
      ElementsAre(HasSubstr(R"("The Start Date Is Greater Than The End Date","icon":"critical")"),
                  R"({"focus":"DTP1"})"));
  EXPECT_EQ(shop.sql("select * from MonthlyProfit"), staged);
}

TEST_F(ItemLists, ProfitByItem) {
  const std::string period = "open frmMonthlyProfit\nset DTP2 05/01/2024\n";
  Json state = shop.show(period + "press cmdView");
  EXPECT_EQ(state["controls"]["tStock"], "320.00");
  // Two lines count 50 per cent each, the one taken back -50.
  EXPECT_THAT(row(state, 1), ElementsAre("1", "1", "Rice", "50.00", "45.00", "30.00", "2.00",
                                         "90.00", "60.00", "30.00", "16.67"));
  EXPECT_EQ(row(state, 2)[10], "100.00");
  EXPECT_EQ(state["controls"]["tTotalProfit"], "40.00");
  EXPECT_EQ(state["controls"]["tMargin"], "58.34") << "of the percentages as shown";
  EXPECT_EQ(state["controls"]["tTotalRows"], "2");
  EXPECT_EQ(row(shop.show("press CmdDesc"), 1)[1], "2");
  EXPECT_EQ(row(shop.show("press cmdAss"), 1)[1], "1");

  state = shop.show("set DTP1 01/02/2024\nset DTP2 02/02/2024\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 1);
  EXPECT_EQ(state["controls"]["tTotalProfit"], "0");
  EXPECT_EQ(state["controls"]["tMargin"], "0");
}

TEST_F(ItemLists, ALineOfQuantityZeroIsNamedAndLeavesNoTableBehind) {
  shop.sql("update Sales set Qty=0 where BillNo=3");
  for (const char* screen : {"frmMonthlyProfit", "frmBillWiseProfit"}) {
    const std::string open = std::string("open ") + screen + "\nset DTP2 06/01/2024\n";
    EXPECT_THAT(shop.run(open + "press cmdView"),
                Contains(HasSubstr("A bill line of this period has the quantity 0")));
    EXPECT_THAT(shop.run("set DTP2 05/01/2024\npress cmdView"),
                ElementsAre(R"({"pointer":"busy"})", R"({"pointer":"normal"})"));
    EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 3) << screen;
  }
}

TEST_F(ItemLists, ProfitByCategory) {
  EXPECT_THAT(shop.run("open frmCatagoryProfit\nkey DTP2 enter"),
              Contains(HasSubstr("Please Select The Catagory")));
  EXPECT_EQ(shop.show("press cmdAss")["grids"]["MSHF"]["rows"], 1);
  const Json state = shop.show("pick Combo1 GRAINS\nset DTP2 06/01/2024\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_EQ(state["controls"]["tTotalSales"], "96.06");
}

TEST_F(ItemLists, ProfitByBillAndItsLines) {
  Json state = shop.show("open frmBillWiseProfit\npress cmdView");
  EXPECT_THAT(row(state, 1), ElementsAre("1", "1", "05/01/2024", "10:00:00 AM", "1", "ANU",
                                         "100.00", "60.00", "40.00", "75.00"));
  EXPECT_EQ(row(state, 2)[9], "0.00");
  EXPECT_EQ(state["controls"]["tMargin"], "37.50");

  EXPECT_THAT(shop.run("press cmdprint").back(), HasSubstr("MonthlyProfitPri.rpt"));
  EXPECT_EQ(shop.sql("select iCode,iName from MonthlyProfit")[0],
            Json::parse(R"([1,"05/01/2024  10:00:00 AM  C1  ANU"])"));

  shop.run("doubleclick MSHF 1");
  state = shop.show();
  EXPECT_EQ(state["screen"], "frmProfitView");
  EXPECT_EQ(state["controls"]["tTotal"], "100.00");
  EXPECT_EQ(state["controls"]["tPercent"], "75.00");
  EXPECT_EQ(row(state, 1)[2], "Rice");
  EXPECT_EQ(state["controls"]["tTotalRows"], "2");

  // A bill without lines has nothing to average.
  shop.add({.number = 9, .net = 5});
  shop.run("close");
  shop.state().SaleBillNo = 9;
  state = shop.show("open frmProfitView");
  EXPECT_EQ(state["controls"]["tTotalRows"], "0.00");
  EXPECT_EQ(state["controls"]["tPercent"], "0");
}

double total(Shop& shop, const std::string& script, const std::string& box) {
  return std::stod(shop.show(script)["controls"][box].get<std::string>());
}

TEST_F(ItemLists, TheReportsAgreeOnWhatWasSold) {
  const std::string period = "\nset DTP1 01/01/2024\nset DTP2 31/01/2024\n";
  const double by_item =
      total(shop, "open frmItemSalesReport" + period + "pick Combo1 ALL COUNTER\npress cmdView",
            "tTotal");
  double by_category = 0;
  for (const char* category : {"GRAINS", "SOAPS"})
    by_category +=
        total(shop, "open FrmCatagorysale" + period + "pick Combo1 " + category + "\npress cmdView",
              "tTotal");
  EXPECT_DOUBLE_EQ(by_category, by_item);
  const double profit_by_item =
      total(shop, "open frmMonthlyProfit" + period + "press cmdView", "tTotalProfit");
  EXPECT_DOUBLE_EQ(total(shop, "open frmBillWiseProfit" + period + "press cmdView", "tTotalProfit"),
                   profit_by_item);
}

// A total sums the cells as they are shown, each rounded to the paisa. Rows that are cut another
// way are rounded another way: two bills of 1.2625 each come to 2.52, the one item row of 2.525
// to 2.53.
TEST_F(ItemLists, ReportsDifferByTheRoundingOfTheirRows) {
  for (int bill = 11; bill <= 12; ++bill)
    shop.add({.number = bill, .date = "2024-03-01", .lines = {{1, "Rice", 12, 10.1, 8, 0.125}}});
  const std::string day = "\nset DTP1 01/03/2024\nset DTP2 01/03/2024\npress cmdView";
  EXPECT_EQ(shop.show("open frmBillWiseProfit" + day)["controls"]["tTotalSales"], "2.52");
  EXPECT_EQ(shop.show("open frmMonthlyProfit" + day)["controls"]["tTotalSales"], "2.53");
  // What does not fit its eight characters comes as asterisks, and counts 0 in the item list alone.
  shop.add({.number = 13, .date = "2024-03-02", .lines = {{1, "Rice", 12, 10, 8, 10000}}});
  const std::string big = "\nset DTP1 02/03/2024\nset DTP2 02/03/2024\n";
  EXPECT_EQ(shop.show("open frmItemSalesReport" + big +
                      "pick Combo1 ALL COUNTER\npress cmdView")["controls"]["tTotal"],
            "0.00");
  EXPECT_EQ(shop.show("open FrmCatagorysale" + big +
                      "pick Combo1 GRAINS\npress cmdView")["controls"]["tTotal"],
            "100000.00");
}

// The statements are exact: joined from the screens' pieces, they read as the server has always
// been sent them.
TEST(ItemStatements, ReadWordForWord) {
  EXPECT_EQ(frmItemSalesReport::sql({{"01/Jan/2024", "31/Jan/2024"}, "3"}),
            "select icode'CODE',iname'ITEM NAME',STR(mrp,8,2)'M.R.P',STR(salerate,8,2)'SALE RATE',"
            "str(sum(qty),8,3)'QTY',str(sum(qty) * salerate,8,2)'AMOUNT' from sales where "
            "billdate>='01/Jan/2024' and billdate<='31/Jan/2024' and counter=3 group by "
            "icode,iname,mrp,salerate order by iname");
  const FilteredSales::Inputs rising{{"a", "b"}, "x'y", FilteredSales::Order::quantity_rising};
  EXPECT_EQ(FilteredSales::sql(FrmCatagorysale(), rising),
            "select S.icode,S.iname,S.mrp,S.salerate,sum(S.qty),sum(S.qty) * S.salerate,I.CATAGORY "
            "from sales S Join ITEMS I on S.iCode=I.iCode where S.billdate>='a' and "
            "S.billdate<='b' and I.catagory='x''y' group by "
            "S.icode,S.iname,S.mrp,S.salerate,I.CATAGORY order by sum(Qty) asc");
  EXPECT_EQ(frmMonthlyProfit::sql({{"a", "b"}, ProfitOrder::key}),
            "Insert into #TableProfit select icode,iname,mrp,salerate,purrate,qty,qty * salerate "
            "as TotalSales,qty * purrate as TotalPurchase,(qty * salerate )- (qty * purrate) as "
            "Profit,(Case when Qty<0 and PurRate>0 Then ((qty * salerate)-(qty * "
            "purrate))*100.0/(qty * purrate)*-1 when Qty<0 and PurRate=0 then -100 when Qty>0 and "
            "purrate=0 then 100 else ((qty * salerate)-(qty * purrate))*100.0/(qty * purrate) end) "
            "As ProfitPercent from sales where BillDate>='a' AND BillDate<='b'");
  EXPECT_THAT(frmCatagoryProfit::sql({{"a", "b"}, "c"}),
              HasSubstr("else ((S.qty * S.salerate)-(S.qty * S.purrate))*100.0/(S.qty * S.purrate) "
                        "end) As ProfitPercent from sales S Join Items I on S.icode=I.icode where "
                        "BillDate>='a' AND BillDate<='b' and I.Catagory='c'"));
  EXPECT_EQ(frmBillWiseProfit::list_sql(ProfitOrder::percent_falling),
            "Select B.BillNo,S.BillDate,S.BillTime,S.Counter,S.Staff,sum(B.SaleRate),"
            "sum(B.PurRate),sum(B.Profit),avg(B.ProfitPercent) as Prfot from BillWiseProfit B Join "
            "SalesTemp S On B.BillNo=S.BillNo group by "
            "B.BillNo,S.BillDate,S.BillTime,S.Counter,S.Staff order by Prfot Desc");
}

}  // namespace
}  // namespace tela::testing
