// The bill view: one sale bill as it was made at the till, with a walk to its neighbours and a
// reprint. The double click of the bill lists opens it.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class FrmBillView : public Screen {
 public:
  explicit FrmBillView(AppState& app);

  /// Reads the bill that `SaleBillNo` names.
  void load() override;

  /// `bill` is the text of the search box. Throw ValueError if it is no number.
  static std::string lines_sql(const std::string& bill);
  static std::string header_sql(const std::string& bill);

 private:
  void view();
  void read_bill();
  void show_header();
  void total_lines();
  void step(int by);
  void print();
  void ClearAll();

  ReportGrid grid_;
};

}  // namespace tela
