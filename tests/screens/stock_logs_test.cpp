// The logs of stock corrections, of edited rates and of rates changed at the till, with the
// deletion of a period; and the items out of stock, with the reset of negative stock.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "screens/stock/frmStockZero.h"
#include "screens/stock/log_report.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Row = std::vector<std::string>;

Row row(const Json& state, std::size_t number) {
  return state["grids"]["MSHF"]["cells"][number];
}

class StockLogs : public ::testing::Test {
 protected:
  StockLogs() {
    shop.add_item(1, "Rice", "GRAINS", "Amma's Kitchen", -2.5, 30);
    shop.add_item(2, "Farmer's Soap ", "SOAPS", "Lily", 0, 8);
    shop.add_item(3, "Anise", "SPICES", "Lily", -1, 8);
    shop.add_item(4, "Salt", "SPICES", "Lily", 7, 8);
    shop.sql("update Items set SaleRate=45,mrp=50,OpStock=1,ministock=3 where iCode<3");
    shop.sql(
        "insert into StockAdjust values (2,'Farmer''s Soap ',10,-2,8,'2024-01-05'),"
        "(1,'Rice',5,1.125,6.125,'2024-01-06'),(1,'Rice',4,1,5,'2024-01-05'),"
        "(1,'Rice',4,1,5,'2024-01-07')");
    shop.sql(
        "insert into ProductEdit values (2,'Farmer''s Soap, long ','0089',50,44,45,'2024-01-05',"
        "'14:05:09'),(1,'Rice',null,50,44,45,'2024-01-06','09:00:00')");
    for (int bill = 1; bill <= 3; ++bill)
      shop.add({.number = bill, .time = "14:05:00", .counter = bill % 2 + 1});
    shop.sql(
        "insert into BillRateChanged values (2,'2024-01-05',1,'ANU ',2,'Farmer''s Soap ',50,47,45),"
        "(1,'2024-01-05',2,'ANU',1,'Rice',50,44,45.5),(3,'2024-01-06',2,'ANU',1,'Rice',50,44,45),"
        "(9,'2024-01-05',1,'ANU',1,'Rice',50,1,45)");
  }

  Shop shop;
};

TEST_F(StockLogs, AdjustmentsOfAPeriodAndTheirPreview) {
  const Json state = shop.show("open frmStockAdjustReport\nset DTP2 06/01/2024\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_THAT(row(state, 2), ElementsAre("2", "1", "Rice", "5.00", "1.13", "6.13", "06/01/2024"));
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["2"], Json::parse("[1,6,14199442]"));

  EXPECT_THAT(shop.run("press cmdPreview"),
              ElementsAre(HasSubstr("DO YOU WANT TO PRINT THE RECORD - (OK To PRINT PREVIEW")));
  EXPECT_EQ(shop.sql("select * from StockAdjRep")[2],
            Json::parse(R"(["2024-01-05","2024-01-06",3,2,"Farmer's Soap",10,-2,8,"2024-01-05"])"))
      << "staged ahead of the question";
  EXPECT_THAT(shop.run("answer ok\npress cmdPreview").back(),
              HasSubstr(R"("StockAdjPrint.rpt","query":"SELECT * FROM StockAdjRep","rows":3)"));
  EXPECT_THAT(shop.run("set DTP1 07/01/2024\npress cmdPreview"),
              ElementsAre(AllOf(HasSubstr("\"The Start Date is Greater Than the End Date\""),
                                HasSubstr("critical")),
                          R"({"focus":"DTP1"})"));
  EXPECT_THAT(shop.run("press cmdView"),
              ElementsAre(HasSubstr("\"Start Date is Greater Than The End Date\"")))
      << "and the focus stays";
}

TEST_F(StockLogs, AnAmountTooWideIsNamed) {
  shop.sql("insert into StockAdjust values (1,'Rice',1e9,1,1e9,'2024-01-05')");
  shop.run("open frmStockAdjustReport\npress cmdView\nanswer ok\npress cmdPreview");
  EXPECT_THAT(shop.run("answer ok\npress cmdPreview"),
              ElementsAre(HasSubstr("Row 2, column \\\"Op_Stock\\\"")));
  EXPECT_EQ(shop.sql("select * from StockAdjRep").dump(), "[]");
}

// Whatever the grid shows, and nothing else.
TEST_F(StockLogs, ADeletionTakesThePeriodOfTheLogAlone) {
  const auto before = shop.stored();
  EXPECT_THAT(shop.run("open frmStockAdjustReport\nset DTP2 06/01/2024\npress Command1").back(),
              HasSubstr("DELETE THE RECORDS - (OK To DELETE THE STOCK REPORT, Cancel To EXIT) \""));
  EXPECT_THAT(shop.run("set DTP1 07/01/2024\nanswer ok\npress Command1"),
              ElementsAre(HasSubstr("OK To DELETE"), HasSubstr("STOCK REPORT DELETED"),
                          HasSubstr("Start Date is Greater")));
  EXPECT_THAT(changed_tables(before, shop.stored()), IsEmpty());
  Json state = shop.show("set DTP1 05/01/2024\nanswer ok\npress Command1");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 1);
  EXPECT_THAT(changed_tables(before, shop.stored()), ElementsAre("StockAdjust"));
  EXPECT_EQ(shop.sql("select AdjustDate from StockAdjust").dump(), R"([["2024-01-07"]])");

  shop.run("open frmProductEditReport\nanswer ok\npress cmdDelete");
  EXPECT_EQ(shop.sql("select ModifiedDate from ProductEdit").dump(), R"([["2024-01-06"]])");
  EXPECT_THAT(changed_tables(before, shop.stored()), ElementsAre("ProductEdit", "StockAdjust"));

  // Of all counters, whichever is chosen.
  state = shop.show("open frmSaleRateDiff\npick Combo1 COUNTER-1\nanswer ok\npress cmdDelete");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 1);
  EXPECT_EQ(shop.sql("select BillNo from BillRateChanged").dump(), "[[3]]");
  EXPECT_THAT(changed_tables(before, shop.stored()),
              ElementsAre("BillRateChanged", "ProductEdit", "StockAdjust"));
  EXPECT_THAT(shop.run("set Combo1 \nanswer ok\npress cmdDelete"),
              ElementsAre(HasSubstr("OK To DELETE THE REPORT"), HasSubstr("\"REPORT DELETED\""),
                          HasSubstr("Please Select The Counter No."), R"({"focus":"Combo1"})"));
}

TEST_F(StockLogs, EditedRatesOfAPeriod) {
  Json state = shop.show("open frmProductEditReport\npress cmdView");
  EXPECT_THAT(row(state, 1), ElementsAre("1", "2", "Farmer's Soap, long", "0089", "50.00", "44.00",
                                         "45.00", "05/01/2024", "02:05:09 PM"));
  EXPECT_THAT(shop.run("press cmdprint"),
              ElementsAre(HasSubstr("\"No Print Or Preview Available Now\",\"icon\":\"info")));
  EXPECT_THAT(shop.run("set DTP2 04/01/2024\npress cmdRefresh"),
              ElementsAre(R"({"focus":"DTP1"})"));
  state = shop.show();
  EXPECT_EQ(state["controls"]["DTP2"], "04/01/2024") << "the screen stays";
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 2);
  EXPECT_EQ(row(state, 0)[8], "  TIME");
  EXPECT_EQ(row(state, 1)[1], "");
  EXPECT_EQ(shop.show("press cmdView")["grids"]["MSHF"]["rows"], 1) << "reversed: no row";
}

TEST_F(StockLogs, ChangedRatesByCounter) {
  shop.run("open frmSaleRateDiff");
  EXPECT_THAT(shop.run("press cmdView"),
              ElementsAre(AllOf(HasSubstr("Please Select The Counter No."), HasSubstr("critical")),
                          R"({"focus":"Combo1"})"));
  EXPECT_EQ(row(shop.show(), 0)[0], "") << "emptied ahead of the check";
  Json state = shop.show("set DTP2 06/01/2024\npick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4) << "bill 9 has no header";
  EXPECT_THAT(row(state, 2), ElementsAre("2", "05/01/2024", "02:05 PM", "1", "ANU", "2",
                                         "Farmer's Soap", "50.00", "47.00", "45.00", "-2.00"));
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["2"], Json::parse("[0,10,14199442]"));
  EXPECT_EQ(state["controls"]["tTotal"], "0.50");
  state = shop.show("pick Combo1 COUNTER-2\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_EQ(state["controls"]["tCounter"], "2");
  EXPECT_EQ(shop.show("doubleclick MSHF 2")["controls"]["tBillNo"], "3");
  EXPECT_THAT(shop.run("switch frmSaleRateDiff\npress cmdPreview").back(),
              HasSubstr("No Print or Preview Available Now"));
}

TEST_F(StockLogs, ItemsOutOfStockStandAtOnceAndAreReset) {
  Json state = shop.show("open frmStockZero");
  EXPECT_THAT(row(state, 2),
              ElementsAre("2", "Farmer's Soap", "50.00", "45.00", "1.00", "3.00", "0.00"));
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["3"], Json::parse("[1,6,16777215]"));
  EXPECT_EQ(state["controls"]["tTotal"], "-112.50");
  EXPECT_EQ(row(shop.show("press cmdByCode"), 1)[1], "Rice");
  EXPECT_EQ(row(shop.show("press Command1"), 2)[1], "Anise");
  EXPECT_EQ(row(shop.show("press Command2"), 1)[1], "Farmer's Soap");

  const auto before = shop.stored();
  EXPECT_THAT(shop.run("press cmdUpdate"),
              ElementsAre(HasSubstr("\"Stock Less than 0 Updated\",\"icon\":\"information\"")));
  EXPECT_THAT(changed_tables(before, shop.stored()), ElementsAre("Items"));
  EXPECT_EQ(shop.sql("select Stock,OpStock,ministock from Items order by iCode").dump(),
            "[[0,1,3],[0,1,3],[0,null,null],[7,null,null]]");
  state = shop.show();
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4) << "they stay, with a stock of 0";
  EXPECT_EQ(state["controls"]["tTotal"], "0.00");

  shop.add_workbook("Products");
  EXPECT_THAT(shop.run("answer ok\npress cmdprint"),
              ElementsAre(HasSubstr("EXPORT TO EXCEL"), HasSubstr("Products"),
                          HasSubstr("Records Exported Sucessfully")));
  EXPECT_THAT(shop.sheet("Products"), HasSubstr("Farmer's Soap"));
  shop.sql("update Items set Stock=1");
  state = shop.show("press cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 1);
  EXPECT_EQ(state["controls"]["tTotal"], "0");
}

TEST(StockLogStatements, ReadWordForWord) {
  const auto sql = [](const LogReport& log, const std::optional<std::string>& counter) {
    return log.sql({"a", "b"}, counter);
  };
  EXPECT_EQ(sql(frmStockAdjustReport(), {}),
            "select icode,iName,str(OpStock,8,2),str(AdjustQty,8,2),str(ClStock,8,2),AdjustDate "
            "from StockAdjust where AdjustDate>='a' and AdjustDate<='b' order by icode,AdjustDate");
  EXPECT_EQ(sql(frmProductEditReport(), {}),
            "Select iCode,iLongName,barcode,mrp,OldRate,salerate,ModifiedDate,ModifiedTime from "
            "ProductEdit where ModifiedDate>='a' and ModifiedDate<='b'");
  const std::string changed_rates =
      "Select B.BillNo,B.BillDate,S.BillTime,B.Counter,B.Staff,B.iCode,B.iName,B.Mrp,B.SaleRate,"
      "B.SaleRateA,B.SaleRateA-B.SaleRate from BillRateChanged B Join SalesTemp S on "
      "B.BillNo=S.BillNo where B.Billdate>='a' and B.BillDate<='b'";
  EXPECT_EQ(sql(frmSaleRateDiff(), {}), changed_rates + " Order by B.BillNo");
  EXPECT_EQ(sql(frmSaleRateDiff(), "6"), changed_rates + "  AND B.counter=6 Order by B.BillNo");
  EXPECT_EQ(LogReportScreen::deleted_rows(frmSaleRateDiff().deletion, {"a", "b"}),
            "where BillDate>='a' and BillDate<='b'");
  EXPECT_EQ(frmStockZero::sql("STOCK asc"),
            "Select icode,iname,mrp,SALERATE,opstock,MINISTOCK,STOCK from itemS where STOCK<=0 "
            "ORDER BY STOCK asc");
}

}  // namespace
}  // namespace tela::testing
