// The profit of a percentage band, the summary of a period, and the reports on suppliers of tax
// type "TOT" with the deletion of a purchase bill.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "screens/profit/FrmSaleProfit.h"
#include "screens/profit/frmProfitPercent.h"
#include "screens/profit/frmTotPurchaseReport.h"
#include "screens/profit/frmTotSales.h"
#include "support/breaking_connection.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Row = std::vector<std::string>;

Row row(const Json& state, std::size_t number) {
  return state["grids"]["MSHF"]["cells"][number];
}

/// The rows without their numbers and percentages, in the order of their texts.
std::vector<Row> figures(const Json& state) {
  std::vector<Row> all = state["grids"]["MSHF"]["cells"];
  all.erase(all.begin());
  for (Row& cells : all) cells = Row(cells.begin() + 1, cells.end() - 1);
  std::sort(all.begin(), all.end());
  return all;
}

struct TradedShop : Shop {
  TradedShop() {
    add_item(1, "Rice", "GRAINS", "Amma's Kitchen", 10, 30);
    add_item(2, "Farmer's Soap", "SOAPS", "Lily", 2.5, 8);
    sql("insert into Supplier (Scode,Sname,TaxType) values (1,'Amma''s Kitchen','TOT'),"
        "(2,'Lily','SGST')");
    add({.number = 1,
         .net = 102,
         .discount = 2,
         .total = 100,
         .lines = {{1, "Rice ", 50, 45, 30, 2}, {2, "Farmer's Soap", 12, 10, 0, 1}}});
    add({.number = 2,
         .type = "HOME DELIVERY",
         .total = 9,
         .lines = {{1, "rice", 50, 45, 30, 1}, {2, "Farmer's Soap", 12, 9, 8, 1}}});
    add({.number = 3, .date = "2024-01-06", .lines = {{1, "Rice", 50, 48.5, 40, -2}}});
  }
};

class ProfitAndTot : public ::testing::Test {
 protected:
  TradedShop shop;
};

TEST_F(ProfitAndTot, ABandThatHoldsEverythingIsTheItemProfit) {
  const std::string period = "\nset DTP2 06/01/2024\n";
  const Json all = shop.show("open frmProfitPercent" + period +
                             "set Text1 -1000\nset Text2 1000\npress cmdView");
  const Json items = shop.show("open frmMonthlyProfit" + period + "press cmdView");
  EXPECT_EQ(figures(all), figures(items));
  EXPECT_EQ(all["grids"]["MSHF"]["widths"], items["grids"]["MSHF"]["widths"]);
  for (const char* box : {"tTotalSales", "tTotalPurchase", "tTotalProfit", "tStock"})
    EXPECT_EQ(all["controls"][box], items["controls"][box]) << box;
}

TEST_F(ProfitAndTot, ABandListsItsRowsFromEitherEnd) {
  const std::string band = "open frmProfitPercent\nset DTP2 06/01/2024\nset Text1 12.5\n";
  Json state = shop.show(band + "set Text2 100\npress cmdView");
  EXPECT_THAT(row(state, 1), ElementsAre("1", "2", "Farmer's Soap", "12.00", "9.00", "8.00", "1.00",
                                         "9.00", "8.00", "1.00", "12.50"));
  EXPECT_EQ(row(state, 2)[10], "50.00");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_EQ(state["grids"]["MSHF"]["colours"]["2"], Json::parse("[1,10,14199442]"));
  EXPECT_EQ(state["controls"]["tTotalProfit"], "56.00");
  EXPECT_EQ(state["controls"]["tMargin"], "57.14") << "of the value, not of the percentages";
  EXPECT_EQ(shop.sql("select count(*) from ProfitPercent").dump(), "[[4]]");
  EXPECT_EQ(row(shop.show("press cmdDesc"), 1)[10], "100.00");
  EXPECT_THAT(row(shop.show("set Text2 12.5\nkey DTP2 enter"), 1), Contains("12.50"));

  // Goods without a cost have no purchase value, and the margin stays.
  state = shop.show("set Text1 100\nset Text2 100\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 2);
  EXPECT_EQ(state["controls"]["tMargin"], "12.50");
  state = shop.show("set Text1 300\nset Text2 400\npress cmdView");
  EXPECT_EQ(state["controls"]["tTotalProfit"], "0");
}

TEST_F(ProfitAndTot, ABandIsCheckedFirst) {
  shop.run("open frmProfitPercent");
  EXPECT_THAT(
      shop.run("set Text1 5\npress cmdView"),
      ElementsAre(AllOf(HasSubstr("Please Enter The from Percentage"), HasSubstr("information")),
                  R"({"focus":"Text2"})"));
  EXPECT_THAT(
      shop.run("set Text2 4.9\npress cmdDesc"),
      ElementsAre(HasSubstr("Error - From % is Greater than the To % \""), R"({"focus":"Text1"})"));
  EXPECT_EQ(shop.show("type Text1 -5")["controls"]["Text1"], "5") << "a sign alone is no number";
}

TEST_F(ProfitAndTot, AFailedProcedureListsNothing) {
  shop.run("open frmProfitPercent\nset Text1 0\nset Text2 100\npress cmdView");
  BreakingConnection::around(shop.state()).refuse("spGetProfitNew");
  EXPECT_THAT(shop.run("press cmdView"),
              ElementsAre(R"({"pointer":"busy"})", R"({"pointer":"normal"})"));
  EXPECT_EQ(shop.sql("select count(*) from ProfitPercent").dump(), "[[0]]");
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 1);
  EXPECT_THAT(row(shop.show(), 0), Contains("PROFIT %"));
}

TEST_F(ProfitAndTot, TheBandIsPreviewedAsTheItemProfit) {
  shop.run("open frmProfitPercent\nset Text1 12\nset Text2 13\npress cmdView\nset DTP2 31/01/2024");
  EXPECT_THAT(shop.run("press cmdprint"), ElementsAre(HasSubstr("MonthlyProfitPri.rpt")));
  EXPECT_EQ(shop.sql("select * from MonthlyProfit"), Json::parse(R"([["2024-01-05","2024-01-31",
    1,2,"Farmer's Soap",12,9,8,1,9,8,1]])"));
}

TEST_F(ProfitAndTot, TheSummaryAddsUp) {
  shop.sql("insert into Journal values (1,'2024-01-05',7.25,10),(1,'2024-01-05',500,3)");
  shop.sql("insert into PurchaseTemp (GrnNo,BillDate,NetAmount) values (1,'2024-01-06',80.5)");
  const Json state = shop.show("open FrmSaleProfit\nset DTP2 06/01/2024\nkey DTP2 enter");
  const Json& boxes = state["controls"];
  // 145 + 9 sold and 97 taken back; 90 + 8 their cost, less 80.
  const std::map<std::string, std::string> expected = {
      {"Text1", "57.00"}, {"Text2", "18.00"},  {"Text3", "7.25"},  {"tDiscount", "2.00"},
      {"Text4", "29.75"}, {"Text5", "109.00"}, {"Text6", "80.50"}, {"Lstock", "320.00"}};
  for (const auto& [box, text] : expected) EXPECT_EQ(boxes[box], text) << box;
  EXPECT_TRUE(state["grids"].empty());

  // The boxes are those of the lists that they come from.
  const Json items = shop.show("open frmMonthlyProfit\nset DTP2 06/01/2024\npress cmdView");
  EXPECT_EQ(boxes["Text1"], items["controls"]["tTotalSales"]);
  EXPECT_EQ(boxes["Text2"], items["controls"]["tTotalPurchase"]);
  EXPECT_EQ(boxes["Lstock"], items["controls"]["tStock"]);
  const Json bills =
      shop.show("open frmmonthlySR\nset DTP2 06/01/2024\npick Combo1 ALL COUNTER\npress cmdView");
  EXPECT_EQ(boxes["Text5"], bills["controls"]["tTotalAmount"]);

  EXPECT_THAT(
      shop.run("switch FrmSaleProfit\nanswer ok\npress cmdprint").back(),
      HasSubstr(R"("report":"ProfitReport.rpt","query":"SELECT * FROM SaleProfit","rows":1)"));
  EXPECT_EQ(shop.sql("select * from SaleProfit"),
            Json::parse(R"([["2024-01-05","2024-01-06",57,18,2,7.25,29.75,109,80.5,320]])"));
}

TEST_F(ProfitAndTot, ASummaryOfNothingIsEmptyAndStagesZeros) {
  const std::string nothing = "open FrmSaleProfit\nset DTP1 01/02/2024\nset DTP2 01/02/2024\n";
  Json state = shop.show(nothing + "press CmdView");
  EXPECT_EQ(state["controls"]["Text1"], "");
  EXPECT_EQ(state["controls"]["Text4"], "0.00");
  shop.run("press cmdprint");
  EXPECT_EQ(shop.sql("select * from SaleProfit").dump(), "[]") << "a Cancel writes nothing";
  EXPECT_EQ(shop.show()["controls"]["Text1"], "0.00");
  shop.run("answer ok\npress cmdprint");
  EXPECT_EQ(shop.sql("select Profit,StockValue from SaleProfit").dump(), "[[0,320]]");
  state = shop.show("set DTP1 05/01/2024\npress CmdView\npress cmdRefresh");
  for (const char* box : {"Text1", "tDiscount", "Text6"}) EXPECT_EQ(state["controls"][box], "0.00");
  EXPECT_EQ(state["controls"]["DTP1"], "05/01/2024") << "the screen stays";
}

// A stock value too wide for the query comes as asterisks. It cannot be staged, and the report must
// not pass off the last one's figures as its own.
TEST_F(ProfitAndTot, ASummaryThatCannotBeStagedOpensEmpty) {
  shop.run("open FrmSaleProfit\nanswer ok\npress cmdprint");
  shop.sql("update Items set Stock=1e12 where iCode=1");
  shop.run("close\nopen FrmSaleProfit");
  EXPECT_EQ(shop.show()["controls"]["Lstock"], "************");
  EXPECT_THAT(shop.run("answer ok\npress cmdprint"), Contains(HasSubstr(R"("rows":0)")));
}

TEST_F(ProfitAndTot, SalesOfTotItemsByBillType) {
  shop.run("open frmTotSales");
  EXPECT_THAT(shop.run("press cmdView"),
              ElementsAre(AllOf(HasSubstr("Please Select the Bill Type"), HasSubstr("critical")),
                          R"({"focus":"Combo1"})"));
  Json state = shop.show("set DTP2 06/01/2024\npick Combo1 ALL SALES\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_THAT(row(state, 1), ElementsAre("1", "1", "Rice", "50.00", "45.00", "3.00", "135.00"));
  EXPECT_EQ(state["controls"]["tTotal"], "38.00");
  state = shop.show("pick Combo1 HOME DELIVERY\npress cmdView");
  EXPECT_EQ(state["controls"]["tTotal"], "45.00");
  EXPECT_THAT(shop.run("doubleclick MSHF 1\npress cmdprint"),
              ElementsAre(HasSubstr("No Print or Preview Available Now")));
}

struct PurchasedShop : TradedShop {
  PurchasedShop() {
    sql("insert into PurchaseTemp (InternalNo,GrnNo,GstNo,BillNo,BillDate,NetAmount,TotalValue,"
        "TotalCGST,TotalSGST,Sname,TaxType) values "
        "(71,7,' G1 ','A-7','2024-01-05',105,100,2.5,2.5,'Amma''s Kitchen','TOT'),"
        "(81,8,'G1','A-8','2024-01-04',50.55,50,0.25,0.3,'Amma''s Kitchen','TOT'),"
        "(91,9,'G2','B-9','2024-01-05',10,10,0,0,'Lily','SGST'),"
        "(null,10,'G2','B-10','2024-01-05',10,10,0,0,'Lily','TOT')");
    sql("insert into Purchase (GrnNo,iCode,Qty) values (7,1,5),(7,2,1),(8,1,3),(9,2,4)");
    sql("insert into Journal values (71,'2024-01-05',105,1),(81,'2024-01-05',50,1),"
        "(91,'2024-01-05',10,1),(72,'2024-01-05',60,1),(73,'2024-01-05',45,1)");
    sql("insert into SupplierCashPay values (7,72),(7,null),(7,73),(8,81)");
    run("open frmTotPurchaseReport");
  }
};

class TotPurchase : public ::testing::Test {
 protected:
  PurchasedShop shop;
};

TEST_F(TotPurchase, ListsAndExports) {
  const Json state = shop.show("set DTP1 04/01/2024\npress cmdView");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 4);
  EXPECT_THAT(row(state, 2), ElementsAre("2", "7", "G1", "A-7", "05/01/2024", "105.00", "100.00",
                                         "2.50", "2.50", "Amma's Kitchen"));
  EXPECT_EQ(state["controls"]["tTotal"], "165.55");
  EXPECT_EQ(state["controls"]["tSgst"], "2.80");
  EXPECT_THAT(shop.run("press cmdprint"),
              ElementsAre(HasSubstr("PLEASE CREATE D:\\\\Tela_Supermarket\\\\SGST.xls")));
  shop.add_workbook("SGST");
  shop.run("press cmdprint");
  EXPECT_THAT(shop.sheet("SGST"), HasSubstr("Amma's Kitchen"));
}

TEST_F(TotPurchase, ChoosesABillByRowOrNumber) {
  Json boxes = shop.show("press cmdView\ndoubleclick MSHF 1")["controls"];
  EXPECT_EQ(boxes["tGrnNo"], "7");
  EXPECT_EQ(boxes["tBillDate"], "05/01/2024");
  EXPECT_EQ(boxes["tAmount"], "105.00");
  EXPECT_EQ(boxes["tInternalNo"], "71");
  EXPECT_EQ(shop.show("type tGrnNo 91")["controls"]["tInternalNo"], "") << "9 has one, 91 has none";
  EXPECT_THAT(shop.run("type tGrnNo 9x"), IsEmpty());
  EXPECT_EQ(shop.show()["controls"]["tInternalNo"], "");
}

TEST_F(TotPurchase, NoBillIsNoDeletion) {
  const auto before = shop.stored();
  for (const char* number : {"", "0", "9x", "1 or 1=1", "77"}) {
    const auto told = shop.run(std::string("set tGrnNo ") + number + "\npress cmdDelete");
    EXPECT_THAT(told, ElementsAre(AllOf(HasSubstr("Purchase Bill"), HasSubstr("critical")),
                                  R"({"focus":"tGrnNo"})"))
        << number;
  }
  shop.run("set tGrnNo 7\nanswer cancel\npress cmdDelete");
  EXPECT_EQ(shop.stored(), before);
}

TEST_F(TotPurchase, DeletesTheBillItsEntriesAndItsPaymentsAndNothingElse) {
  const auto before = shop.stored();
  const auto told = shop.run("press cmdView\nset tGrnNo 7\nanswer ok\npress cmdDelete");
  EXPECT_THAT(told, ElementsAre(HasSubstr("OK To DELETE THE CURRENT PURCHASE BILL"),
                                HasSubstr("Purchase Record Deleted")));
  EXPECT_THAT(changed_tables(before, shop.stored()),
              ElementsAre("Journal", "Purchase", "PurchaseTemp", "SupplierCashPay"));
  EXPECT_EQ(shop.sql("select GrnNo from Purchase").dump(), "[[8],[9]]");
  EXPECT_EQ(shop.sql("select GrnNo from PurchaseTemp").dump(), "[[8],[9],[10]]");
  EXPECT_EQ(shop.sql("select InternalNo from Journal").dump(), "[[81],[91]]");
  EXPECT_EQ(shop.sql("select * from SupplierCashPay").dump(), "[[8,81]]");
  const Json state = shop.show();
  EXPECT_EQ(state["controls"]["tGrnNo"], "");
  EXPECT_EQ(state["controls"]["tInternalNo"], "");
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 2) << "the bill of 10 is left of that day";

  // A bill of another tax type goes as well, and one without a voucher.
  shop.run("answer ok ok\nset tGrnNo 9\npress cmdDelete\nset tGrnNo 10\npress cmdDelete");
  EXPECT_EQ(shop.sql("select GrnNo from PurchaseTemp").dump(), "[[8]]");
  EXPECT_EQ(shop.sql("select InternalNo from Journal").dump(), "[[81]]");
}

// Whatever call of the deletion fails, the same press finishes it, and until then the user knows
// what is gone and what is left.
TEST(TotPurchaseBrokenOff, IsFinishedByTheSamePress) {
  PurchasedShop whole;
  const auto before = whole.stored();
  whole.run("set tGrnNo 7\nanswer ok\npress cmdDelete");
  const auto after = whole.stored();
  std::set<std::string> remaining;
  for (int calls = 0;; ++calls) {
    PurchasedShop shop;
    shop.run("set tGrnNo 7");
    BreakingConnection& connection = BreakingConnection::around(shop.state());
    connection.allow(calls);
    const std::string told = shop.run("answer ok\npress cmdDelete").back();
    connection.allow(BreakingConnection::kUnlimited);
    if (told.find("could not be completed") == std::string::npos) break;
    const auto broken = shop.stored();
    if (broken.at("Purchase") == before.at("Purchase")) {
      EXPECT_EQ(broken, before) << calls;
    } else {
      EXPECT_EQ(broken.at("PurchaseTemp"), after.at("PurchaseTemp")) << calls;
      const bool paid = broken.at("SupplierCashPay") == before.at("SupplierCashPay");
      EXPECT_EQ(told.find("Press DELETE again") != std::string::npos, paid) << told;
      if (paid) remaining.insert(broken.at("Journal"));
    }
    shop.run("leave tGrnNo\nanswer ok\npress cmdDelete");
    EXPECT_EQ(shop.stored(), after) << calls;
  }
  EXPECT_EQ(remaining.size(), 2u) << "broken off ahead of the second and of the third transaction";
}

TEST(ProfitStatements, ReadWordForWord) {
  EXPECT_EQ(frmProfitPercent::insert_sql({"a", "b"}),
            "Insert into ProfitPercent execute spGetProfitNew 'a','b'");
  EXPECT_EQ(frmProfitPercent::sql({"0", "5.5", true}),
            "select iCode,iName,Mrp,SaleRate,PurRate,Qty,SaleTotal,PurTotal,ProfitTotal,ProfitPer "
            "from ProfitPercent where ProfitPer>=0 and ProfitPer<=5.5 ORDER BY ProfitPer Desc");
  std::string summary;
  for (const auto& read : FrmSaleProfit::figures({"a", "b"})) summary += read.sql + "\n";
  EXPECT_EQ(summary,
            "Select sum(salerate *  QTY) from sales Where BillDate>='a' and BillDate<='b'\n"
            "Select sum(QTY * purrate) from sales Where BillDate>='a' and BillDate<='b'\n"
            "Select sum(TransAmount) from Journal Where TransDate>='a' and TransDate<='b' and "
            "LedgerType=10\n"
            "Select sum(DiscAmount),SUM(Total) from salesTemp where BillDate>='a' and "
            "BillDate<='b'\n"
            "Select sum(NetAmount) from PurchaseTemp where BillDate>='a' and BillDate<='b'\n");
  EXPECT_EQ(
      frmTotPurchaseReport::sql({"a", "b"}),
      "Select GrnNo,GstNo,BillNo,BillDate,NetAmount,TotalValue,TotalCGST,TotalSGST,Sname FROM "
      "PurchaseTemp where BillDate>='a' and BillDate<='b' AND TaxType='TOT'");
  const std::string tot_sales =
      "Select S.iCode,S.iName,S.mrp,S.SaleRate,Sum(S.Qty),S.SaleRate * sum(S.Qty) as Total from "
      "Sales S JOIN Salestemp ST On S.BillNo=ST.BillNo JOIN Items I On I.iCode=S.iCode JOIN "
      "Supplier Su on I.Supplier=Su.Sname where Su.TaxType='TOT' and ";
  const std::string tot_period =
      "S.BillDate>='a' and S.BillDAte<='b' Group by S.iCode,S.iName,S.mrp,S.SaleRate order by "
      "S.iCode";
  EXPECT_EQ(frmTotSales::sql({{"a", "b"}, "ALL SALES"}), tot_sales + tot_period);
  EXPECT_EQ(frmTotSales::sql({{"a", "b"}, "O'X"}),
            tot_sales + "ST.BillType='O''X' and " + tot_period);
}

}  // namespace
}  // namespace tela::testing
