// The tax lists over sale lines at all rates, whose figures can be checked by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "screens/tax_shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class TaxLists : public ::testing::Test {
 protected:
  TaxLists() {
    TaxedLine disagreeing = taxed(11, 5, 118, 18);
    disagreeing.half = 6;
    TaxedLine other_code = taxed(7, 4, 112, 12);
    other_code.hsn = "1006 ";
    other_code.qty = 0.5;
    TaxedLine taken_back = taxed(12, 5, -103, 3);
    taken_back.hsn = "7113";
    taken_back.qty = -1;
    shop.sell({taxed(7, 4, 105, 5), other_code, taxed(9, 4, 118, 18), taxed(9, 4, -59, 18),
               taxed(10, 5, 140, 28, 12), taxed(10, 5, 100, 0), disagreeing, taken_back});
  }

  void expect_empty(const std::string& screen, const std::vector<std::string>& totals,
                    const std::string& shown = "0") {
    const Json state =
        shop.show("open " + screen + "\nset DTP1 31/01/2024\nset DTP2 01/01/2024\npress cmdView");
    for (const auto& [name, grid] : state["grids"].items())
      EXPECT_THAT(rows(state, name), ::testing::IsEmpty()) << screen;
    for (const std::string& total : totals)
      EXPECT_EQ(state["controls"][total], shown) << screen << "." << total;
  }

  TaxShop shop;
};

TEST_F(TaxLists, DaysAndRates) {
  const Json state = shop.viewed("frmDateWise");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4) << "one blank row stands behind the last";
  EXPECT_THAT(row(state, 1),
              ElementsAre("1", "7", "9", "04/01/2024", "276.00", "250.00", "13.00", "13.00"));
  // 140/128 + 1 + 118/112 - 1 hundreds are taxable: what disagrees counts with iCGst + iSGst here.
  EXPECT_THAT(row(state, 2),
              ElementsAre("2", "10", "12", "05/01/2024", "255.00", "214.73", "20.13", "20.13"));
  const Json& boxes = state["controls"];
  EXPECT_EQ(boxes["Text1"], "TOTAL Rs.");
  EXPECT_EQ(boxes["Text2"], "531.00");
  EXPECT_EQ(boxes["Text3"], "464.73");
  EXPECT_EQ(boxes["Text4"], "33.13");
  EXPECT_EQ(boxes["Text5"], "33.13");
  EXPECT_EQ(state["grids"]["MSHF"]["colours"],
            Json::parse(R"({"1":[0,7,16777215],"2":[0,7,14199442]})"));
  // And with iIGst here.
  EXPECT_THAT(rows(state, "MSHFlexGrid1"),
              ElementsAre(ElementsAre("1", "100.00", "0.00", "100.00", "0.00"),
                          ElementsAre("2", "-103.00", "3.00", "-100.00", "-3.00"),
                          ElementsAre("3", "105.00", "5.00", "100.00", "5.00"),
                          ElementsAre("4", "112.00", "12.00", "100.00", "12.00"),
                          ElementsAre("5", "177.00", "18.00", "150.00", "27.00"),
                          ElementsAre("6", "140.00", "28.00", "109.38", "30.62")));
  EXPECT_EQ(state["grids"]["MSHFlexGrid1"]["rows"], 7);
  EXPECT_EQ(shop.sql("select count(*) from DailyGstTable")[0][0], 7)
      << "a row a bill and pair of rates";
}

TEST_F(TaxLists, DaysArePreviewedAsTheyAreShown) {
  shop.viewed("frmDateWise");
  EXPECT_THAT(shop.run("press cmdprint"),
              ElementsAre(HasSubstr(R"("text":"Records Saved","icon":"information")"),
                          HasSubstr(R"({"preview":{"report":"GST_Date_Report1.rpt","query":)"
                                    R"("SELECT * FROM GstDateWisePrint","rows":2,"pages":1}})")));
  EXPECT_EQ(shop.sql("select * from GstDateWisePrint"),
            Json::parse(R"([[1,7,9,"2024-01-04",276,250,13,13],
                            [2,10,12,"2024-01-05",255,214.73,20.13,20.13]])"));
  EXPECT_THAT(shop.run("press cmdRefresh\npress cmdprint").back(), HasSubstr(R"("rows":0)"));
}

// The failure of a rate is passed over: the days are shown, and the rates stay empty.
TEST_F(TaxLists, ARateThatCannotBeDividedByEmptiesTheRatesAlone) {
  shop.sell({{20, 6, 50, -100, 0}});
  EXPECT_THAT(shop.run("set DTP1 01/01/2024\nset DTP2 31/01/2024\nkey DTP2 enter"), ElementsAre());
  const Json state = shop.show();
  EXPECT_EQ(rows(state).size(), 3U);
  EXPECT_THAT(row(state, 0, "MSHFlexGrid1"), Contains("TAX AMOUNT"));
  EXPECT_EQ(state["grids"]["MSHFlexGrid1"]["rows"], 1);
}

TEST_F(TaxLists, DaysWithAPairOfColumnsForEachRate) {
  shop.add_workbook("GST_TAX");
  const Json state = shop.viewed("frmDateWiseGst");
  EXPECT_THAT(
      rows(state),
      ElementsAre(ElementsAre("1", "7", "9", "04/01/2024", "0.00", "100.00", "5.00", "100.00",
                              "12.00", "50.00", "9.00", "0.00", "0.00"),
                  // Bill 12, at none of the five rates, is the last of the day all the same.
                  ElementsAre("2", "10", "12", "05/01/2024", "100.00", "0.00", "0.00", "0.00",
                              "0.00", "100.00", "18.00", "109.38", "30.63")));
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["2"], Json::parse("[1,12,14199442]"));
  EXPECT_THAT(shop.run("press cmdprint").front(),
              HasSubstr(R"({"workbook":"GST_TAX","rows":3,"cols":13})"));
  EXPECT_THAT(shop.sheet("GST_TAX"), HasSubstr("\n1,7,9,04/Jan/2024,0.00,100.00,5.00"));
}

TEST_F(TaxLists, CodesOfGoods) {
  const Json state = shop.viewed("frmHsnSalesReport");
  EXPECT_THAT(
      rows(state),
      ElementsAre(
          ElementsAre("1", "0401", "6.00", "522.00", "464.73", "0.00", "28.63", "28.63"),
          ElementsAre("2", "1006", "0.50", "112.00", "100.00", "0.00", "6.00", "6.00"),
          ElementsAre("3", "7113", "-1.00", "-103.00", "-100.00", "0.00", "-1.50", "-1.50")));
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_EQ(state["controls"]["tBasicAmount"], "464.73");
  EXPECT_EQ(state["controls"]["tCgst"], "33.13");
  // What was only taken back is not staged.
  EXPECT_THAT(shop.run("press cmdprint"),
              ElementsAre(HasSubstr(R"("HSN_Report.rpt","query":"SELECT * FROM HSNSalesPrint",)"
                                    R"("rows":2)")));
  EXPECT_EQ(shop.sql("select * from HSNSalesPrint"),
            Json::parse(R"([[1,"0401",6,522,464.73,0,28.63,28.63],
                            [2,"1006",0.5,112,100,0,6,6]])"));
}

TEST_F(TaxLists, AFailedPreviewKeepsTheRowsOfTheLast) {
  shop.sql("drop table HSNSalesPrint");
  shop.sql(
      "create table HSNSalesPrint (SNo int,iHSNcode varchar(2),a float,b float,c float,"
      "d float,e float,f float)");
  shop.sql("insert into HSNSalesPrint values(7,'x',1,1,1,1,1,1)");
  shop.viewed("frmHsnSalesReport");
  EXPECT_THAT(shop.run("press cmdprint"),
              ElementsAre(HasSubstr(R"("Error - Please Check The Values","icon":"critical")")));
  EXPECT_EQ(shop.sql("select SNo from HSNSalesPrint"), Json::parse("[[7]]"));
}

TEST_F(TaxLists, RatesWithTheirCess) {
  const Json empty = shop.show("open frmRateOfTax");
  EXPECT_EQ(row(empty, 0)[1], "") << "no headings before the first View";
  EXPECT_EQ(row(empty, 0, "MSHF1")[1], "");
  for (const char* line : {"1,'SGST',200,5,5,5,0", "1,'SGST',100,18,9,9,0",
                           "2,'IGST',300,12,0,0,36", "3,'TOT',999,5,25,25,0"})
    shop.sql(std::string("insert into Purchase (GrnNo,TaxType,Amount,iIGst,iCGstAmt,iSGstAmt,"
                         "iIGstAmt,BillDate) values (") +
             line + ",'2024-01-05')");
  for (const char* cess : {"1.25", "0.5", "0.255"})
    shop.sql(std::string("insert into PurchaseTemp (BillDate,CessAmount) values ('2024-01-05',") +
             cess + ")");
  // A second cess percent at a rate is worked back by itself: 100 taxable, 28 and 18.50.
  shop.sell({taxed(13, 6, 146.5, 28, 18.5)});

  const Json state = shop.viewed("frmRateOfTax");
  EXPECT_THAT(rows(state), ElementsAre(ElementsAre("1", "100.00", "0.00", "100.00", "0.00"),
                                       ElementsAre("2", "-103.00", "3.00", "-100.00", "-3.00"),
                                       ElementsAre("3", "105.00", "5.00", "100.00", "5.00"),
                                       ElementsAre("4", "112.00", "12.00", "100.00", "12.00"),
                                       ElementsAre("5", "177.00", "18.00", "150.00", "27.00"),
                                       ElementsAre("6", "286.50", "28.00", "200.00", "56.00")));
  EXPECT_THAT(rows(state, "MSHF1"), ElementsAre(ElementsAre("1", "200.00", "5.00", "10.00"),
                                                ElementsAre("2", "100.00", "18.00", "18.00")));
  const Json& boxes = state["controls"];
  EXPECT_EQ(boxes["tTotalSales"], "550.00") << "of what is taxable";
  EXPECT_EQ(boxes["tTotalSalesGst"], "97.00");
  EXPECT_EQ(boxes["tCess"], "30.50");
  EXPECT_EQ(boxes["tTotalPurchase"], "300.00");
  EXPECT_EQ(boxes["tTotalPurGst"], "28.00");
  EXPECT_EQ(boxes["tCessAmount"], "2.01") << "of all purchase bills";
  EXPECT_THAT(rows(shop.viewed("frmRateOfGstI"), "MSHF1"),
              ElementsAre(ElementsAre("1", "300.00", "12.00", "36.00")));
}

// A tax of 100,000.0000 has eleven characters, a cess as well.
TEST_F(TaxLists, AMonthsTaxAtOneRateHasRoomForAnyAmount) {
  shop.sell({taxed(13, 6, 1400000, 28, 12), taxed(14, 6, -112000000, 12)});
  const Json state = shop.viewed("frmRateOfTax");
  EXPECT_EQ(row(state, 6),
            (std::vector<std::string>{"6", "1400140.00", "28.00", "1000100.00", "280028.00"}));
  EXPECT_EQ(row(state, 4)[4], "-11999988.00");
  EXPECT_EQ(state["controls"]["tCess"], "120012.00");
}

TEST_F(TaxLists, AFailedListLeavesNoTableBehind) {
  shop.sell({taxed(13, 6, 10, 0, -100)});
  shop.run("open frmRateOfTax\nset DTP1 01/01/2024\nset DTP2 31/01/2024");
  for (int attempt = 0; attempt < 2; ++attempt)
    EXPECT_THAT(shop.run("press cmdView"), Contains(HasSubstr("ivide by zero")));
  shop.sql("update Sales set CessPercent=0 where BillNo=13");
  EXPECT_EQ(rows(shop.viewed("frmRateOfTax")).size(), 6U);
}

// Where the blank last row is summed as the others are, it gives the zero its decimals.
TEST_F(TaxLists, WithoutRowsTheTotalsAreZero) {
  expect_empty("frmDateWise", {"Text2", "Text3", "Text4", "Text5"});
  expect_empty("frmDateWiseGst", {});
  expect_empty("frmHsnSalesReport", {"tBasicAmount", "tIgst", "tCgst", "tSgst"});
  expect_empty("frmRateOfTax", {"tTotalSales", "tTotalSalesGst", "tTotalPurchase", "tTotalPurGst"},
               "0.00");
  EXPECT_EQ(shop.show()["controls"]["tCess"], "0.00");
  EXPECT_EQ(shop.show()["controls"]["tCessAmount"], "0.00");
  expect_empty("frmRateOfGstI", {"tTotalPurchase", "tTotalPurGst"}, "0.00");
  expect_empty("frmSgstPurchase", {"tTotal", "tBasicAmount", "tCgst", "tSgst"});
  expect_empty("frmIgstPurchase", {"tTotal", "tBasicAmount", "tCgst"});
  expect_empty("frmPurchaseReport", {"tIgst", "tCgst"});
  expect_empty("frmBtoB", {"tIgst", "tCgst"});
  expect_empty("frmHsnB2B", {"tBasicAmount", "tIgst", "tCgst", "tSgst"});
  expect_empty("frmRateOfGstB2B", {"tTotalSales", "tTotalSalesGst"});
}

TEST_F(TaxLists, EnterGoesFromDateToDateAndOn) {
  for (const char* screen : {"frmHsnSalesReport", "frmRateOfTax", "frmBtoB"})
    EXPECT_THAT(shop.run(std::string("open ") + screen + "\nkey DTP1 enter\nkey DTP2 enter"),
                ElementsAre(HasSubstr("opened"), R"({"focus":"DTP2"})", R"({"focus":"cmdView"})"));
  EXPECT_EQ(rows(shop.show("open frmDateWiseGst\nset DTP1 01/01/2024\nkey DTP2 enter")).size(), 2U);
}

}  // namespace
}  // namespace tela::testing
