#include "screens/registry.h"

#include "screens/bill_sales/FrmBillView.h"
#include "screens/bill_sales/bill_list.h"
#include "screens/bill_sales/frmList.h"
#include "screens/graphs/frmBarChart.h"
#include "screens/graphs/frmBarChartCost.h"
#include "screens/graphs/period_chart.h"
#include "screens/maintenance/StartDeleteBills.h"
#include "screens/maintenance/frmCatSaleDelete.h"
#include "screens/maintenance/frmCatWSaleDelete.h"
#include "screens/maintenance/frmCreatT.h"
#include "screens/maintenance/frmGiftAndPoints.h"
#include "screens/maintenance/frmPoints.h"
#include "screens/profit/FrmSaleProfit.h"
#include "screens/profit/frmBillWiseProfit.h"
#include "screens/profit/frmCatagoryProfit.h"
#include "screens/profit/frmMonthlyProfit.h"
#include "screens/profit/frmProfitPercent.h"
#include "screens/profit/frmProfitView.h"
#include "screens/profit/frmTotPurchaseReport.h"
#include "screens/profit/frmTotSales.h"
#include "screens/purchase/frmIWPurRep.h"
#include "screens/purchase/frmPurBillView.h"
#include "screens/purchase/frmPurchaseView.h"
#include "screens/purchase/purchase_list.h"
#include "screens/sales_analysis/filtered_sales.h"
#include "screens/sales_analysis/frmDetailSales1.h"
#include "screens/sales_analysis/frmItemSalesReport.h"
#include "screens/sales_analysis/frmMobilePayDetails.h"
#include "screens/sales_analysis/frmSaleReturn.h"
#include "screens/sales_analysis/frmdailyIwiseSR.h"
#include "screens/stock/frmOptimumStock.h"
#include "screens/stock/frmStockReport.h"
#include "screens/stock/frmStockZero.h"
#include "screens/stock/log_report.h"
#include "screens/tax/frmDateWise.h"
#include "screens/tax/frmGstModifySales.h"
#include "screens/tax/frmHsnSalesReport.h"
#include "screens/tax/frmRateOfTax.h"
#include "screens/tax/tax_list.h"

namespace tela {

std::span<const ScreenEntry> all_screens() {
  static constexpr ScreenEntry kScreens[] = {
      {"frmDailyS_R", make_sister<BillListReport, frmDailyS_R>},
      {"frmmonthlySR", make_sister<BillListReport, frmmonthlySR>},
      {"frmDailyCashsales", make_sister<BillListReport, frmDailyCashsales>},
      {"frmMonthlyCashSales", make_sister<BillListReport, frmMonthlyCashSales>},
      {"frmMonthlyCreditSales", make_sister<BillListReport, frmMonthlyCreditSales>},
      {"fBillToBill", make_sister<BillListReport, fBillToBill>},
      {"frmSalesByValue", make_sister<BillListReport, frmSalesByValue>},
      {"frmUserReport", make_sister<BillListReport, frmUserReport>},
      {"FrmBillView", make_screen<FrmBillView>},
      {"frmList", make_screen<frmList>},
      {"frmdailyIwiseSR", make_screen<frmdailyIwiseSR>},
      {"frmItemSalesReport", make_screen<frmItemSalesReport>},
      {"frmDetailSales1", make_screen<frmDetailSales1>},
      {"frmSaleReturn", make_screen<frmSaleReturn>},
      {"frmMobilePayDetails", make_screen<frmMobilePayDetails>},
      {"FrmCatagorysale", make_sister<FilteredSales, FrmCatagorysale>},
      {"frmSupplierSales", make_sister<FilteredSales, frmSupplierSales>},
      {"frmMonthlyProfit", make_screen<frmMonthlyProfit>},
      {"frmCatagoryProfit", make_screen<frmCatagoryProfit>},
      {"frmBillWiseProfit", make_screen<frmBillWiseProfit>},
      {"frmProfitView", make_screen<frmProfitView>},
      {"frmProfitPercent", make_screen<frmProfitPercent>},
      {"FrmSaleProfit", make_screen<FrmSaleProfit>},
      {"frmTotPurchaseReport", make_screen<frmTotPurchaseReport>},
      {"frmTotSales", make_screen<frmTotSales>},
      {"frmStockReport", make_screen<frmStockReport>},
      {"frmOptimumStock", make_screen<frmOptimumStock>},
      {"frmStockZero", make_screen<frmStockZero>},
      {"frmStockAdjustReport", make_sister<LogReportScreen, frmStockAdjustReport>},
      {"frmProductEditReport", make_sister<LogReportScreen, frmProductEditReport>},
      {"frmSaleRateDiff", make_sister<LogReportScreen, frmSaleRateDiff>},
      {"frmBarChart", make_screen<frmBarChart>},
      {"frmBarChartDay", make_sister<PeriodChartScreen, frmBarChartDay>},
      {"frmBarChartCatagory", make_sister<PeriodChartScreen, frmBarChartCatagory>},
      {"frmBarChartCounter", make_sister<PeriodChartScreen, frmBarChartCounter>},
      {"frmBarChartUser", make_sister<PeriodChartScreen, frmBarChartUser>},
      {"frmBarChartCost", make_screen<frmBarChartCost>},
      {"frmDateWise", make_screen<frmDateWise>},
      {"frmDateWiseGst", make_sister<TaxListReport, frmDateWiseGst>},
      {"frmHsnSalesReport", make_screen<frmHsnSalesReport>},
      {"frmGstModifySales", make_screen<frmGstModifySales>},
      {"frmSgstPurchase", make_sister<TaxListReport, frmSgstPurchase>},
      {"frmIgstPurchase", make_sister<TaxListReport, frmIgstPurchase>},
      {"frmPurchaseReport", make_sister<TaxListReport, frmPurchaseReport>},
      {"frmRateOfTax", make_screen<frmRateOfTax>},
      {"frmRateOfGstI", make_sister<TaxListReport, frmRateOfGstI>},
      {"frmHsnB2B", make_sister<TaxListReport, frmHsnB2B>},
      {"frmBtoB", make_sister<TaxListReport, frmBtoB>},
      {"frmRateOfGstB2B", make_sister<TaxListReport, frmRateOfGstB2B>},
      {"frmPurBillView", make_screen<frmPurBillView>},
      {"frmPurchaseView", make_screen<frmPurchaseView>},
      {"frmMPreport", make_sister<PurchaseListReport, frmMPreport>},
      {"frmmonthlyPR", make_sister<PurchaseListReport, frmmonthlyPR>},
      {"frmItemPurchaseReport", make_sister<PurchaseListReport, frmItemPurchaseReport>},
      {"frmIWPurRep", make_screen<frmIWPurRep>},
      {"frmTotalPurchase", make_sister<PurchaseListReport, frmTotalPurchase>},
      {"frmCatSaleDelete", make_screen<frmCatSaleDelete>},
      {"frmCatWSaleDelete", make_screen<frmCatWSaleDelete>},
      {"frmPoints", make_screen<frmPoints>},
      {"frmGiftAndPoints", make_screen<frmGiftAndPoints>},
      {"frmCreatT", make_screen<frmCreatT>},
  };
  return kScreens;
}

std::span<const ActionEntry> all_actions() {
  static constexpr ActionEntry kActions[] = {{"StartDeleteBills", StartDeleteBills}};
  return kActions;
}

}  // namespace tela
