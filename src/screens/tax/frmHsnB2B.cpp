// Sales to registered businesses by HSN code and rate.
#include "screens/tax/shared_lists.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

// Goods at rate 0 are exempt: they count as value, not as taxable value.
std::string taxable(const Recordset& rs) {
  const bool exempt = field_number(rs.field(7)) == 0;
  return exempt ? "0.00" : cell_text(rs.field(2), number_field(2, "######0.00"));
}

}  // namespace

TaxList frmHsnB2B() {
  TaxList list = hsn_list(worked_out(taxable), number_field(4, "######0.00"), 5);
  list.screen = "frmHsnB2B";
  list.caption = "HSN REPORT B2B";
  list.sql = [](const Period& period) {
    return "Select iHSNcode,sum(Qty)'Total Qty',sum(Amount)'Amount',sum(Amount)'Taxable',"
           "sum(iIGstAmt),sum(iCGstAmt),sum(iSGstAmt),iIGST from sales1 where " +
           within("Billdate", period) + " group by iHSNcode,iIGST Order By iIGST,iHSNcode";
  };
  list.refresh_opens = "frmHsnSalesReport";
  list.sheet = sheet_layouts::frmHsnB2B;
  return list;
}

}  // namespace tela
