// The different rates at which one item was sold in a period.
#pragma once

#include "screens/graphs/chart_screen.h"

namespace tela {

class frmBarChartCost : public ChartScreen {
 public:
  /// The item's long name. Throws ValueError if the code is no number.
  static std::string name_sql(const std::string& code);
  /// Fills the temporary table with the item's rates.
  static std::string rates_sql(const Period& period, const std::string& code);

  explicit frmBarChartCost(AppState& app);

 private:
  void view() override;
  void look_up_name();
};

}  // namespace tela
