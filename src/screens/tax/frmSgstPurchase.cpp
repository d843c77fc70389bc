// The purchase bills of suppliers within the state.
#include "screens/tax/shared_lists.h"

namespace tela {

TaxList frmSgstPurchase() {
  TaxList list =
      purchase_bills("SGST", {{"CGST", "tCgst", "TotalCGST"}, {"SGST", "tSgst", "TotalSGST"}});
  list.screen = "frmSgstPurchase";
  list.caption = "SGST PURCHASE REPORT";
  list.sheet = sheet_layouts::frmSgstPurchase;
  return list;
}

}  // namespace tela
