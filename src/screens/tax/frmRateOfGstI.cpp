// Purchases from other states, by rate.
#include "screens/tax/shared_lists.h"

namespace tela {

TaxList frmRateOfGstI() {
  return {
      .screen = "frmRateOfGstI",
      .caption = "RATE OF GST - OTHER STATE",
      .words = mixed_words("EXCEL"),
      .columns = rate_columns("TOTAL PURCHASE", "tTotalPurchase", "tTotalPurGst"),
      .look = rate_look("MSHF1"),
      .results = tab_order(total_box("tTotalPurchase", "TOTAL Rs."), total_box("tTotalPurGst", "")),
      .sql =
          [](const Period& period) {
            return stored_tax_by_rate("Purchase", period, "  and TaxType='IGST'");
          },
      .sheet = sheet_layouts::frmRateOfGstI,
  };
}

}  // namespace tela
