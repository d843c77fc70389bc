// Sales to registered businesses within the state, by rate.
#include "screens/tax/shared_lists.h"

namespace tela {

TaxList frmRateOfGstB2B() {
  return {
      .screen = "frmRateOfGstB2B",
      .caption = "RATE OF GST B 2 B",
      .words = mixed_words("EXCEL"),
      .columns = rate_columns("TOTAL SALES", "tTotalSales", "tTotalSalesGst"),
      .look = {.headed_at_load = false},
      .results = group("         SALES REPORT", tab_order(total_box("tTotalSales", "TOTAL Rs."),
                                                          total_box("tTotalSalesGst", ""))),
      .sql =
          [](const Period& period) {
            return stored_tax_by_rate("Sales1", period, "  and TaxType='SGST'");
          },
      .refresh_opens = "frmRateOfTax",
      .sheet = sheet_layouts::frmRateOfGstB2B,
  };
}

}  // namespace tela
