// The purchase bills of suppliers from other states.
#include "screens/tax/shared_lists.h"

namespace tela {

TaxList frmIgstPurchase() {
  TaxList list = purchase_bills("IGST", {{"IGST", "tCgst", "TotalIGST"}});
  list.screen = "frmIgstPurchase";
  list.caption = "IGST PURCHASE REPORT";
  list.sheet = sheet_layouts::frmIgstPurchase;
  return list;
}

}  // namespace tela
