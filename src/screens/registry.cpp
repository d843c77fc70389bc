#include "screens/registry.h"

#include "screens/bill_sales/FrmBillView.h"
#include "screens/bill_sales/frmDailyS_R.h"
#include "screens/bill_sales/frmList.h"
#include "screens/bill_sales/frmmonthlySR.h"
#include "screens/maintenance/frmCreatT.h"
#include "screens/profit/frmBillWiseProfit.h"
#include "screens/profit/frmCatagoryProfit.h"
#include "screens/profit/frmMonthlyProfit.h"
#include "screens/profit/frmProfitView.h"
#include "screens/sales_analysis/FrmCatagorysale.h"
#include "screens/sales_analysis/frmItemSalesReport.h"
#include "screens/sales_analysis/frmSupplierSales.h"
#include "screens/sales_analysis/frmdailyIwiseSR.h"

namespace tela {

std::span<const ScreenEntry> all_screens() {
  static constexpr ScreenEntry kScreens[] = {
      {"frmDailyS_R", make_screen<frmDailyS_R>},
      {"frmmonthlySR", make_screen<frmmonthlySR>},
      {"FrmBillView", make_screen<FrmBillView>},
      {"frmList", make_screen<frmList>},
      {"frmdailyIwiseSR", make_screen<frmdailyIwiseSR>},
      {"frmItemSalesReport", make_screen<frmItemSalesReport>},
      {"FrmCatagorysale", make_screen<FrmCatagorysale>},
      {"frmSupplierSales", make_screen<frmSupplierSales>},
      {"frmMonthlyProfit", make_screen<frmMonthlyProfit>},
      {"frmCatagoryProfit", make_screen<frmCatagoryProfit>},
      {"frmBillWiseProfit", make_screen<frmBillWiseProfit>},
      {"frmProfitView", make_screen<frmProfitView>},
      {"frmCreatT", make_screen<frmCreatT>},
  };
  return kScreens;
}

}  // namespace tela
