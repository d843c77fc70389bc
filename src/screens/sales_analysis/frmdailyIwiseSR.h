// The daily item-wise sales report: what was sold on one day, item by item.
#pragma once

#include <optional>
#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmdailyIwiseSR : public Screen {
 public:
  explicit frmdailyIwiseSR(AppState& app);

  struct Inputs {
    std::string day;                     ///< under the mask of statements
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
