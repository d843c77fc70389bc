// The counter-wise sales: what each till counter took in a period, in one grid what was paid at the
// till, in another what went on credit or was delivered, and beside them the credit payments.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmDetailSales1 : public Screen {
 public:
  explicit frmDetailSales1(AppState& app);

  /// A bill of a type that neither grid names is in both.
  static std::string till_sql(const Period& period);
  static std::string credit_sql(const Period& period);
  static std::string payments_sql(const Period& period);

 private:
  void view();
  void show_payments(const Period& period);

  ReportGrid till_;
  ReportGrid credit_;
};

}  // namespace tela
