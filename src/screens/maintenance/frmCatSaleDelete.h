// Category sale delete: lists and previews the sale lines of one category. It changes nothing
// stored.
#pragma once

#include <string>

#include "screens/maintenance/category_lines.h"

namespace tela {

class frmCatSaleDelete : public CategoryLinesScreen {
 public:
  static std::string sql(const Inputs& inputs);

  explicit frmCatSaleDelete(AppState& app);

 private:
  void view();
};

}  // namespace tela
