// The item-wise sales report for a period.
#pragma once

#include <optional>
#include <string>

#include "report_framework/grid_report.h"

namespace tela {

class frmItemSalesReport : public GridReport {
 public:
  explicit frmItemSalesReport(AppState& app);

  struct Inputs {
    std::string from;                    ///< under "dd/mmm/yyyy"
    std::string to;                      ///< likewise
    std::optional<std::string> counter;  ///< nothing: all counters
  };
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();
  void list();
  void preview();
};

}  // namespace tela
