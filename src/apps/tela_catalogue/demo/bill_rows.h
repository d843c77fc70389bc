// The rows that bills leave in the catalogue.
#pragma once

#include "apps/tela_catalogue/demo/bills.h"
#include "apps/tela_catalogue/demo/rows.h"

namespace tela::demo {

/// Writes a bill's header and lines, and what goes with them: changed rates, return notes, the
/// customer's debt.
void write_bill(const Bill& bill, Shop& shop, RowSink& sink);

/// Writes the wholesale pair of a bill, under the same number.
void write_wholesale_bill(const Bill& bill, const Shop& shop, RowSink& sink);

/// Writes the next bill to a registered business: `lines` at their value before tax, and the tax.
void write_business_bill(const std::vector<BillLine>& lines, Date date, Shop& shop, Random& random,
                         RowSink& sink);

}  // namespace tela::demo
