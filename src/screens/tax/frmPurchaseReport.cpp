// Purchases by bill and rate, of all suppliers but those of type "TOT".
#include "screens/tax/shared_lists.h"

namespace tela {

TaxList frmPurchaseReport() {
  TaxList list = bills_by_rate("SUPPLIER NAME");
  list.screen = "frmPurchaseReport";
  list.caption = "PURCHASE REPORT - GST";
  list.sql = [](const Period& period) {
    return "Select T.GstNo'GST NO',P.BillNo'BILLNO',P.BillDate'BILL DATE',T.AfterDiscount'VALUE',"
           "P.iIGst'GST %',sum(P.Amount)'TAXABLE',"
           "sum(P.iCGstAmt + P.iSGstAmt + P.iIGstAmt)'TAX AMT',T.Sname'SUPPLIER NAME',"
           "P.GrnNo,P.TaxType from Purchase P Left Join PurchaseTemp T On P.GrnNo=T.GrnNo where " +
           within("P.Billdate", period) +
           " and P.TaxType<>'TOT' group by P.GrnNo,P.BillNo,P.BillDate,P.iIGst,P.TaxType,"
           "T.AfterDiscount,T.GstNo,T.Sname order by P.GrnNo,P.BillNo,P.iIGst";
  };
  list.sheet = sheet_layouts::frmPurchaseReport;
  return list;
}

}  // namespace tela
