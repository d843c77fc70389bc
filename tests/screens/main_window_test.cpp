// The login and the main window, driven by script.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

Json menu(const Json& main, const std::string& name) {
  for (const Json& menu : main["main"]["menus"])
    if (menu["name"] == name) return menu;
  return {};
}

TEST(Login, OpensTheMainWindowWhateverTheCaseOfTheWords) {
  Shop shop;
  EXPECT_THAT(shop.run("login kestr kestr472"),
              ElementsAre(R"({"focus":"Text2"})", R"({"opened":"MDIReport"})",
                          R"({"closed":"frmownerpassword"})"));
  const Json main = Json::parse(shop.run("main").back());
  EXPECT_EQ(main["main"]["caption"], "TELA MINI SUPER MARKET  - ");
  EXPECT_EQ(main["main"]["panel"], nullptr);
  EXPECT_TRUE(menu(main, "ProfitReport")["enabled"]);
  EXPECT_EQ(menu(main, "ProfitReport")["entries"].size(), 13U);
  EXPECT_FALSE(menu(main, "DeleteBills")["enabled"]);
}

TEST(Login, TheRestrictedLevelSwitchesOneMenuOff) {
  Shop shop;
  const auto lines =
      shop.run("login KESTR KESTR\nmenu MonthlyProfitReport\npanel cmdMonthlyProfit");
  EXPECT_THAT(lines[3], HasSubstr("MonthlyProfitReport is switched off"));
  const Json main = Json::parse(shop.run("menu DailySalesReport\nmain").back());
  EXPECT_FALSE(menu(main, "ProfitReport")["enabled"]);
  EXPECT_EQ(main["main"]["screens"], Json::parse(R"(["frmDailyS_R"])"));
}

TEST(Login, RefusesWrongWords) {
  Shop shop;
  // A wrong name leaves the password box locked, so what is typed there has no effect.
  EXPECT_THAT(shop.run("set Text1 owner\nkey Text1 enter\nset Text2 KESTR472"),
              ElementsAre(R"({"focus":"Text1"})"));
  EXPECT_EQ(shop.show()["controls"]["Text1"], "");
  EXPECT_EQ(shop.show()["controls"]["Text2"], "");
  EXPECT_THAT(shop.run("set Text1 kestr\nkey Text1 enter\nset Text2 secret\nkey Text2 enter"),
              ElementsAre(R"({"focus":"Text2"})",
                          R"({"message":{"text":"Enter the Correct Password","icon":"critical",)"
                          R"("buttons":"ok","title":"","answer":"ok"}})"));
  // Once unlocked it stays so, and the name is not looked at again.
  EXPECT_THAT(shop.run("key Text2 up\nset Text1 owner\nset Text2 KESTR\nkey Text2 enter"),
              ElementsAre(R"({"focus":"Text1"})", R"({"opened":"MDIReport"})",
                          R"({"closed":"frmownerpassword"})"));
}

TEST(Login, AFailedConnectionIsToldOnceAndCanBeTriedAgain) {
  Shop shop;
  const auto file = shop.paths().embedded_catalogue("TelaData");
  const auto away = file.string() + ".away";
  std::filesystem::rename(file, away);
  const auto lines = shop.run("login KESTR KESTR472");
  EXPECT_THAT(lines[1], R"({"message":{"text":"NET WORK PROBLEM OR DATABASE NOT CONNECTED",)"
                        R"("icon":"information","buttons":"ok","title":"TELA MINI SUPER MARKET",)"
                        R"("answer":"ok"}})");
  EXPECT_THAT(lines.back(), HasSubstr("error"));
  EXPECT_EQ(shop.state().ShopName, "");
  std::filesystem::rename(away, file);
  EXPECT_THAT(shop.run("key Text2 enter"), Contains(R"({"opened":"MDIReport"})"));
  EXPECT_EQ(shop.state().ShopTitle, shop.state().ShopName + " ");
}

TEST(Login, AStartTableWithoutItsRowKeepsTheLogin) {
  Shop shop;
  shop.sql("delete from PrinterSet");
  EXPECT_THAT(shop.run("login KESTR KESTR472"), Contains(HasSubstr("could not be completed")));
  EXPECT_THAT(shop.run("main").back(), HasSubstr("Nobody has logged in"));
  shop.sql("insert into PrinterSet values (2,'x',' LPT1 ','',3,4)");
  EXPECT_THAT(shop.run("key Text2 enter"), Contains(R"({"opened":"MDIReport"})"));
  EXPECT_EQ(shop.state().PortNo, "LPT1");
  EXPECT_EQ(shop.state().PrintNo, 2);
}

TEST(MainWindow, OneWindowAScreenWhicheverWayItIsOpened) {
  Shop shop;
  shop.run("login KESTR KESTR472");
  EXPECT_THAT(shop.run("menu DailySalesReport"), ElementsAre(R"({"opened":"frmDailyS_R"})"));
  shop.run("set DTPicker1 01/02/2024\nmenu MonthlySalesReport");
  EXPECT_THAT(shop.run("toolbar sales\npanel cmdDailySales"),
              ElementsAre(R"({"front":"frmDailyS_R"})"));
  EXPECT_EQ(shop.show()["controls"]["DTPicker1"], "01/02/2024");
  EXPECT_EQ(Json::parse(shop.run("main").back())["main"]["screens"],
            Json::parse(R"(["frmDailyS_R","frmmonthlySR"])"));
  EXPECT_THAT(shop.run("close"), ElementsAre(R"({"closed":"frmDailyS_R"})"));
  EXPECT_EQ(shop.show()["screen"], "frmmonthlySR");
}

// What each entry and each button opens, as the owner knows them.
TEST(MainWindow, EveryEntryOpensItsOwnScreen) {
  const std::map<std::string, std::vector<std::pair<std::string, std::string>>> kOpens = {
      {"menu",
       {{"DailySalesReport", "frmDailyS_R"},
        {"MonthlySalesReport", "frmmonthlySR"},
        {"CounterWiseSales", "frmDetailSales1"},
        {"DailyItemwiseSReport", "frmdailyIwiseSR"},
        {"MonthlyItemwiseSReport", "frmItemSalesReport"},
        {"UserWiseReport", "frmUserReport"},
        {"CatagorySales", "FrmCatagorysale"},
        {"SupplierWiseSales", "frmSupplierSales"},
        {"DailyCashSalesReport", "frmDailyCashsales"},
        {"MonthlyCashSalesReport", "frmMonthlyCashSales"},
        {"MonthlyCrSales", "frmMonthlyCreditSales"},
        {"BillToBillReport", "fBillToBill"},
        {"SaleReturnReport", "frmSaleReturn"},
        {"SaleByValue", "frmSalesByValue"},
        {"MobilePayDetails", "frmMobilePayDetails"},
        {"MonthlyProfitReport", "frmMonthlyProfit"},
        {"CatagoryWiseProfit", "frmCatagoryProfit"},
        {"ProfitPercentWise", "frmProfitPercent"},
        {"SaleProfit", "FrmSaleProfit"},
        {"BillWiseProfit", "frmBillWiseProfit"},
        {"TotPurchaseReport", "frmTotPurchaseReport"},
        {"TotSalesReport", "frmTotSales"},
        {"ProductEditReport", "frmProductEditReport"},
        {"StockAdjustReport", "frmStockAdjustReport"},
        {"StockZeroReport", "frmStockZero"},
        {"OptimumStock", "frmOptimumStock"},
        {"SaleRateDiff", "frmSaleRateDiff"},
        {"StockReport", "frmStockReport"},
        {"GrForAMonth", "frmBarChartDay"},
        {"GrForAYear", "frmBarChart"},
        {"GrForACounter", "frmBarChartCounter"},
        {"GrForaStaff", "frmBarChartUser"},
        {"GrForCatagory", "frmBarChartCatagory"},
        {"MonthlyPurchaseReport", "frmMPreport"},
        {"MonthlyIWpurreport", "frmItemPurchaseReport"},
        {"MonthlyPaymentReport", "frmTotalPurchase"},
        {"DateWiseSalesReport", "frmDateWise"},
        {"DateWiseGstReport", "frmDateWiseGst"},
        {"HSNSalesTaxReport", "frmHsnSalesReport"},
        {"GstModify", "frmGstModifySales"},
        {"SGSTPurchaseReport", "frmSgstPurchase"},
        {"IGSTPurchaseReport", "frmIgstPurchase"},
        {"PurchaseReportGst", "frmPurchaseReport"},
        {"RateOfGst", "frmRateOfTax"},
        {"RateOfIgst", "frmRateOfGstI"},
        {"hsnB2b", "frmHsnB2B"},
        {"B2BReport", "frmBtoB"},
        {"RateOfGstB2B", "frmRateOfGstB2B"},
        {"Points", "frmPoints"},
        {"CustomerGift", "frmGiftAndPoints"}}},
      {"toolbar sales\npanel",
       {{"cmdDailySales", "frmDailyS_R"},
        {"cmdMonthlySales", "frmmonthlySR"},
        {"cmdDailyItemWise", "frmdailyIwiseSR"},
        {"cmdMonItemWise", "frmItemSalesReport"},
        {"cmdUserWise", "frmUserReport"},
        {"cmdCatWise", "FrmCatagorysale"},
        {"cmdDailyCashSal", "frmDailyCashsales"},
        {"cmdMonCashSal", "frmMonthlyCashSales"},
        {"Command1", "frmMonthlyCreditSales"},
        {"cmdBillToBill", "fBillToBill"},
        {"CmdSaleRet", "frmSaleReturn"}}},
      {"toolbar purchase\npanel",
       {{"CmdMonthlyPurchase", "frmMPreport"},
        {"cmdMonthlyIW", "frmItemPurchaseReport"},
        {"CmdMonthlyPayment", "frmTotalPurchase"}}}};
  Shop shop;
  shop.run("login KESTR KESTR472");
  for (const auto& [way, entries] : kOpens)
    for (const auto& [entry, screen] : entries) {
      if (!shop.state().windows.knows(screen)) continue;
      EXPECT_THAT(shop.run(way + " " + entry), Contains(R"({"opened":")" + screen + R"("})"));
      shop.run("close");
    }
}

TEST(MainWindow, ThePanels) {
  Shop shop;
  shop.run("login KESTR KESTR472");
  const auto panel = [&](const std::string& script) {
    return Json::parse(shop.run(script + "\nmain").back())["main"]["panel"];
  };
  EXPECT_EQ(panel("toolbar sales\ntoolbar sales"), "Picture1");
  EXPECT_EQ(panel("toolbar tax\ntoolbar printer"), "Picture1");
  EXPECT_EQ(panel("toolbar purchase"), "Picture3");
  EXPECT_THAT(shop.run("panel cmdDailySales").back(), HasSubstr("has no button cmdDailySales"));
  EXPECT_EQ(panel("panel CmdExit"), nullptr);
  EXPECT_THAT(shop.run("toolbar exit\nmain"), ElementsAre(R"({"exit":true})"));
}

TEST(MainWindow, WhatCannotBeReached) {
  Shop shop;
  EXPECT_THAT(shop.run("menu DailySalesReport"), ElementsAre(HasSubstr("Nobody has logged in")));
  shop.run("login KESTR KESTR472");
  for (const char* entry : {"StartDeleteBills", "CatagorySDelete", "CostVeriation"})
    EXPECT_THAT(shop.run(std::string("menu ") + entry), ElementsAre(HasSubstr("switched off")));
  EXPECT_THAT(shop.run("menu PrinterSettings"), IsEmpty());
}

TEST(Script, AFailedCommandNamesItsLineAndTheScriptGoesOn) {
  Shop shop;
  EXPECT_THAT(
      shop.run(
          "# a comment\n\nfrobnicate\nopen frmNowhere\nopen frmDailyS_R\nset Nothing x\n"
          "press cmdMissing\nset DTPicker1 31/02/2024\npick Combo1 COUNTER-9\nkey Combo1 left\n"
          "sql select nothing from nowhere\nanswer maybe"),
      ElementsAre(HasSubstr("line 3: There is no command \\\"frobnicate\\\""),
                  HasSubstr("line 4: There is no screen frmNowhere"), R"({"opened":"MDIReport"})",
                  R"({"closed":"frmownerpassword"})", R"({"opened":"frmDailyS_R"})",
                  HasSubstr("line 6: The screen frmDailyS_R has no control Nothing"),
                  HasSubstr("line 7: The screen frmDailyS_R has no control cmdMissing"),
                  HasSubstr("line 8"), HasSubstr("line 9"), HasSubstr("line 10"),
                  HasSubstr("nowhere"), HasSubstr("line 12")));
}

TEST(Script, SqlPrintsValuesByTheirTypes) {
  Shop shop;
  shop.add({.number = 7, .date = "2024-02-29", .time = "09:05:00", .total = 12.5});
  EXPECT_THAT(
      shop.run("sql select BillNo,BillDate as D,BillTime,Total,Staff,CustName from SalesTemp"),
      ElementsAre(R"({"columns":["BillNo","D","BillTime","Total","Staff","CustName"],)"
                  R"("types":["whole number","date","time","number","text","text"],)"
                  R"("rows":[[7,"2024-02-29","09:05:00",12.5,"ANU",null]]})"));
  EXPECT_THAT(shop.run("sql delete from SalesTemp"), ElementsAre(R"({"done":true})"));
}

}  // namespace
}  // namespace tela::testing
