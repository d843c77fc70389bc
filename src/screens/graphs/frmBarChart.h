// The sales of each month of up to a year, by way of a staging table, and the picture as a file.
#pragma once

#include "screens/graphs/chart_screen.h"

namespace tela {

class frmBarChart : public ChartScreen {
 public:
  /// Fills the staging table. The last day of the period is not counted.
  static std::string staging_sql(const Period& period);

  explicit frmBarChart(AppState& app);

 private:
  void view() override;
  void stage(const Period& period);
  void save();
};

}  // namespace tela
