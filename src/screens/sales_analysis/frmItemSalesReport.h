// The item-wise sales report for a period.
#pragma once

#include <optional>
#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmItemSalesReport : public Screen {
 public:
  explicit frmItemSalesReport(AppState& app);

  struct Inputs {
    Period period;
    std::optional<std::string> counter;  ///< nothing: all counters
  };
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();
  void preview();

  ReportGrid grid_;
};

}  // namespace tela
