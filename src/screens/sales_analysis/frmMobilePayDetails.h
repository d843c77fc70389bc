// The mobile payment details: the mobile payments of a period, summed by kind of payment.
#pragma once

#include <optional>
#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmMobilePayDetails : public Screen {
 public:
  explicit frmMobilePayDetails(AppState& app);

  struct Inputs {
    Period period;
    std::optional<std::string> counter;  ///< nothing: all counters
  };
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();

  ReportGrid grid_;
};

}  // namespace tela
