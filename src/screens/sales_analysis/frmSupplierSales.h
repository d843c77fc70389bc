// Supplier sales: what was sold of one supplier's items. The supplier is the one that the item
// names today.
#pragma once

#include "screens/sales_analysis/filtered_sales.h"

namespace tela {

class frmSupplierSales : public FilteredSales {
 public:
  explicit frmSupplierSales(AppState& app);
  static SalesFilter definition();
};

}  // namespace tela
