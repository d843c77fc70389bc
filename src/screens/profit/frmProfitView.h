// The profit view: the lines of one bill with a percentage for each. The double click of the
// bill-wise list opens it.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmProfitView : public Screen {
 public:
  explicit frmProfitView(AppState& app);

  /// Reads the bill that `SaleBillNo` names. That is all the screen does.
  void load() override;

  static std::string lines_sql(const std::string& bill);
  static std::string header_sql(const std::string& bill);

 private:
  void read_header(const std::string& bill);

  ReportGrid grid_;
};

}  // namespace tela
