// Stock zero: the items whose present stock is zero or negative, valued at their sale rate, and the
// reset of all negative stock to zero.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmStockZero : public Screen {
 public:
  explicit frmStockZero(AppState& app);

  /// Lists at once.
  void load() override;

  /// `order` is what follows "ORDER BY ".
  static std::string sql(const std::string& order);

 private:
  void list(const std::string& order);
  void list_slowly(const std::string& order);
  void write_value();
  void reset_negative_stock();

  ReportGrid grid_;
};

}  // namespace tela
