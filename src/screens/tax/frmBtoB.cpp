// Bills to registered businesses, by bill and rate.
#include "screens/tax/shared_lists.h"

namespace tela {

TaxList frmBtoB() {
  TaxList list = bills_by_rate("CUSTOMER NAME");
  list.screen = "frmBtoB";
  list.caption = "B to B REPORT";
  list.sql = [](const Period& period) {
    return "Select ST.GstNo,ST.BillNo,ST.BillDate,ST.NetAmount,S.iIGst,sum(S.Amount),"
           "sum(S.iCGstAmt + S.iSGstAmt + S.iIGstAmt),ST.Cname from  Sales1 S Join SalesTemp1 ST "
           "on S.BillNo=ST.BillNo where " +
           within("ST.Billdate", period) +
           " group by ST.GstNo,ST.BillNo,ST.BillDate,ST.NetAmount,S.iIGst,ST.Cname order by "
           "ST.BillNo,S.iIGst";
  };
  list.sheet = sheet_layouts::frmBtoB;
  return list;
}

}  // namespace tela
