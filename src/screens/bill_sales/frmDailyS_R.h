// The daily sales report: the bills of one day, for one till counter or for all, with the way each
// was paid.
#pragma once

#include <optional>
#include <string>

#include "report_framework/grid_report.h"

namespace tela {

class frmDailyS_R : public GridReport {
 public:
  explicit frmDailyS_R(AppState& app);

  struct Inputs {
    std::string day;                     ///< under "dd/mmm/yyyy"
    std::optional<std::string> counter;  ///< nothing: all counters
  };
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();
  void preview();
};

}  // namespace tela
