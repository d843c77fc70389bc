// The sale return report: the returned bill lines of a period, which are those with a negative
// quantity.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmSaleReturn : public Screen {
 public:
  explicit frmSaleReturn(AppState& app);

  struct Inputs {
    Period period;
    int counter = 0;  ///< 1 to 4; 0: all counters
  };
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();
  void preview();

  ReportGrid grid_;
};

}  // namespace tela
