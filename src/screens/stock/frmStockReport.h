// The stock report: every item's opening stock, sales, purchases, adjustments and closing stock of
// a period, rebuilt from the movements alone. The tills' running stock plays no part.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmStockReport : public Screen {
 public:
  explicit frmStockReport(AppState& app);

  /// The rows of the items that were created before the period's last day, with their movements.
  static std::string computed_sql(const Period& period);
  /// The rows of zeros of all others.
  static std::string zeros_sql(const Period& period);
  static std::string closing_sql();
  static std::string list_sql();

 private:
  void view();
  void rebuild(const Period& period);
  /// Prints the rows with a number above 0 in `counted_by`.
  void print(int counted_by);

  ReportGrid grid_;
};

}  // namespace tela
