// What tax lists share with a sister word for word, as unfinished values: each sister adds the
// rest.
#pragma once

#include <string>
#include <vector>

#include "screens/tax/tax_list.h"

namespace tela {

/// A row a bill and rate, with the other party's name in the last column.
TaxList bills_by_rate(std::string party);

/// A tax that purchase bills show in a column of its own.
struct PurchaseTax {
  std::string header;
  std::string box;
  std::string column;  ///< of `PurchaseTemp`
};
/// A row a purchase bill of one tax type.
TaxList purchase_bills(const std::string& type, const std::vector<PurchaseTax>& taxes);

/// Sales by HSN code. The sources are those of the columns TAXABLE and IGST; CGST and SGST are the
/// fields `central` and the next one.
TaxList hsn_list(CellSource taxable, CellSource integrated, int central);

/// A row a rate, of lines that store their tax: the sum of `Amount`, the rate, the tax.
GridColumns rate_columns(std::string amount, std::string amount_box, std::string tax_box);
/// How such a list looks that adds a row for each rate, with the blank row among the summed ones.
GridLook rate_look(std::string grid);
/// The rows of such a list. `type` is the condition on the tax type, with the blanks ahead of it.
std::string stored_tax_by_rate(const std::string& table, const Period& period,
                               const std::string& type);

}  // namespace tela
