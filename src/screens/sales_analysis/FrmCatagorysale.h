// Category sales: what was sold of one item category.
#pragma once

#include "screens/sales_analysis/filtered_sales.h"

namespace tela {

class FrmCatagorysale : public FilteredSales {
 public:
  explicit FrmCatagorysale(AppState& app);
  static SalesFilter definition();
};

}  // namespace tela
