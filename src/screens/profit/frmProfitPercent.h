// Profit percent: the items of a period whose profit percentage lies within a band. The figures
// come from the catalogue's procedure, by way of the staging table `ProfitPercent`.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmProfitPercent : public Screen {
 public:
  explicit frmProfitPercent(AppState& app);

  struct Inputs {
    std::string from;  ///< the lower bound of the band in percent, as typed; it is counted
    std::string to;    ///< the upper bound, likewise
    bool falling = false;
  };
  /// The rows of the band. Throws ValueError for a bound that is no number.
  static std::string sql(const Inputs& inputs);
  /// The filling of `ProfitPercent` with all rows of the period.
  static std::string insert_sql(const Period& period);

 private:
  void fill_lists() override;
  void list(bool falling);
  bool refused_band();
  void stage(const Period& period);
  void show_band();
  void write_margin();
  void preview();

  ReportGrid grid_;
};

}  // namespace tela
