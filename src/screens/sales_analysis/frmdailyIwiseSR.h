// The daily item-wise sales report: what was sold on one day, item by item.
#pragma once

#include <optional>
#include <string>

#include "report_framework/grid_report.h"

namespace tela {

class frmdailyIwiseSR : public GridReport {
 public:
  explicit frmdailyIwiseSR(AppState& app);

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
