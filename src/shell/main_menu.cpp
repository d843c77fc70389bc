// The seven menus, the toolbar and the four panels.
#include "shell/main_menu.h"

namespace tela {

std::vector<Menu> main_menus() {
  return {
      {"SalesReport",
       "SALES REPORT",
       {
           {"DailySalesReport", "DAILY SALES REPORT", "frmDailyS_R"},
           {"MonthlySalesReport", "MONTHLY SALES REPORT", "frmmonthlySR"},
           {"CounterWiseSales", "COUNTER WISE SALES", "frmDetailSales1"},
           {"DailyItemwiseSReport", "DAILY ITEMWISE SALES REPORT", "frmdailyIwiseSR"},
           {"MonthlyItemwiseSReport", "MONTHLY ITEMWISE SALES REPORT", "frmItemSalesReport"},
           {"UserWiseReport", "USER WISE REPORT", "frmUserReport"},
           {"CatagorySales", "CATAGORY WISE SALES", "FrmCatagorysale"},
           {"SupplierWiseSales", "SUPPLIER WISE SALES", "frmSupplierSales"},
           {"DailyCashSalesReport", "DAILY CASH SALES REPORT", "frmDailyCashsales"},
           {"MonthlyCashSalesReport", "MONTHLY CASH SALES REPORT", "frmMonthlyCashSales"},
           {"MonthlyCrSales", "MONTHLY CREDIT SALES REPORT", "frmMonthlyCreditSales"},
           {"BillToBillReport", "Bill To Bill Report", "fBillToBill"},
           {"SaleReturnReport", "Sale Return Report", "frmSaleReturn"},
           {"SaleByValue", "Sales By Value", "frmSalesByValue"},
           {"MobilePayDetails", "Mobile Pay Details", "frmMobilePayDetails"},
       }},
      {"ProfitReport",
       "PROFIT REPORT",
       {
           {"MonthlyProfitReport", "MONTHLY PROFIT REPORT", "frmMonthlyProfit"},
           {"CatagoryWiseProfit", "Catagory Wise Profit", "frmCatagoryProfit"},
           {"ProfitPercentWise", "Profit Percent Wise", "frmProfitPercent"},
           {"SaleProfit", "SALE PROFIT", "FrmSaleProfit"},
           {"BillWiseProfit", "Bill Wise Profit", "frmBillWiseProfit"},
           {"TotPurchaseReport", "TOT Purchase Report", "frmTotPurchaseReport"},
           {"TotSalesReport", "TOT Sales Report", "frmTotSales"},
           {"ProductEditReport", "Product Edit Report", "frmProductEditReport"},
           {"StockAdjustReport", "Stock Adjust Report", "frmStockAdjustReport"},
           {"StockZeroReport", "Stock Zero Report", "frmStockZero"},
           {"OptimumStock", "Optimum Stock", "frmOptimumStock"},
           {"SaleRateDiff", "Sale Rate Difference", "frmSaleRateDiff"},
           {"StockReport", "Stock Report", "frmStockReport"},
       }},
      {"GraphView",
       "Graph View",
       {
           {"GrForAMonth", "For A Month", "frmBarChartDay"},
           {"GrForAYear", "For A Year", "frmBarChart"},
           {"GrForACounter", "For A Counter", "frmBarChartCounter"},
           {"GrForaStaff", "For A Staff", "frmBarChartUser"},
           {"GrForCatagory", "For A Catagory", "frmBarChartCatagory"},
           {"CostVeriation", "Cost Veriation", "frmBarChartCost", false},
       }},
      {"PurchaseReport",
       "PURCHASE REPORT",
       {
           {"MonthlyPurchaseReport", "Monthly Purchase Report", "frmMPreport"},
           {"MonthlyIWpurreport", "Product Purchase Report", "frmItemPurchaseReport"},
           {"MonthlyPaymentReport", "Total Purchase Report", "frmTotalPurchase"},
       }},
      {"Taxreport",
       "TAX REPORT",
       {
           {"DateWiseSalesReport", "Date Wise Sales Report", "frmDateWise"},
           {"DateWiseGstReport", "Date Wise Gst Report", "frmDateWiseGst"},
           {"HSNSalesTaxReport", "HSN SALES REPORT", "frmHsnSalesReport"},
           {"GstModify", "Gst Modify in Sales", "frmGstModifySales"},
           {"SGSTPurchaseReport", "SGST PURCHASE REPORT", "frmSgstPurchase"},
           {"IGSTPurchaseReport", "IGST PURCHASE REPORT", "frmIgstPurchase"},
           {"PurchaseReportGst", "Purchase Report Gst", "frmPurchaseReport"},
           {"RateOfGst", "RATE OF GST", "frmRateOfTax"},
           {"RateOfIgst", "RATE OF GST IGST", "frmRateOfGstI"},
           {"hsnB2b", "HSN B2B", "frmHsnB2B"},
           {"B2BReport", "B2B Report", "frmBtoB"},
           {"RateOfGstB2B", "Rate Of Gst B2B", "frmRateOfGstB2B"},
       }},
      {"DeleteBills",
       "DELETE BILLS",
       {
           {"StartDeleteBills", "START DELETE BILLS", "StartDeleteBills"},
           {"CatagorySDelete", "Catagory Sale Delete", "frmCatSaleDelete", false},
           {"CatagoryWSaleDelete", "Catagory Whole Sale Delete", "frmCatWSaleDelete", false},
       },
       false},
      {"Settings",
       "Settings",
       {
           {"PrinterSettings", "Printer Settings", ""},
           {"Points", "Sale Points", "frmPoints"},
           {"CustomerGift", "Customer Gifts", "frmGiftAndPoints"},
       }},
  };
}

std::vector<ToolButton> main_toolbar() {
  return {{"   Sales  ", "sales"},
          {"Purchase", "purchase"},
          {"Tax", "tax"},
          {"Printer", "printer"},
          {"Exit", "exit"}};
}

std::vector<Panel> main_panels() {
  const MenuEntry exit{"CmdExit", "EXIT BUTTONS", ""};
  return {
      {"Picture1",
       {
           {"cmdDailySales", "DAILY SALES ", "frmDailyS_R"},
           {"cmdMonthlySales", "MONTHLY SALES ", "frmmonthlySR"},
           {"cmdDailyItemWise", "DAILY ITEMWISE", "frmdailyIwiseSR"},
           {"cmdMonItemWise", "MONTHLY ITEMWISE SALES", "frmItemSalesReport"},
           {"cmdUserWise", "USER WISE", "frmUserReport"},
           {"cmdCatWise", "CATEGORY WISE", "FrmCatagorysale"},
           {"cmdDailyCashSal", "DAILY CASH SALES", "frmDailyCashsales"},
           {"cmdMonCashSal", "MONTHLY CASH SALES", "frmMonthlyCashSales"},
           {"Command1", "MONTHLY CREDIT SALES", "frmMonthlyCreditSales"},
           {"cmdBillToBill", "BILL TO BILL", "fBillToBill"},
           {"CmdSaleRet", "SALE RETURN", "frmSaleReturn"},
           exit,
       }},
      {"Picture3",
       {
           {"CmdMonthlyPurchase", "MONTHLY PURCHASE", "frmMPreport"},
           {"cmdMonthlyIW", "MONTHLY ITEM WISE", "frmItemPurchaseReport"},
           {"CmdMonthlyPayment", "TOTAL PURCHASE", "frmTotalPurchase"},
           exit,
       }},
      {"Picture2",
       {
           {"CmdSalesTax", "SALES TAX ", ""},
           {"CmdPurchaseTax", "PURCHASE TAX", ""},
           {"CmdSupplierTax", "SUPPLIER TAX", ""},
           {"CmdItemWise", "ITEM WISE", ""},
           exit,
       }},
      {"Picture4",
       {
           {"cmdMonthlyProfit", "MONTHLY PROFIT", "frmMonthlyProfit"},
           {"CmdSaleProfit", "SALE PROFIT", "FrmSaleProfit"},
           exit,
       }},
  };
}

}  // namespace tela
