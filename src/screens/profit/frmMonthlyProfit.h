// The monthly profit report: what was sold in a period with its profit, one row for each item and
// its prices.
#pragma once

#include <string>

#include "screens/profit/profit_report.h"

namespace tela {

class frmMonthlyProfit : public ProfitReport {
 public:
  explicit frmMonthlyProfit(AppState& app);

  struct Inputs {
    Period period;
    ProfitOrder order = ProfitOrder::key;
  };
  /// The insert of the period's lines into `#TableProfit`.
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void with_staged_lines(const Period& period, ProfitOrder order,
                         const std::function<void()>& list) override;
};

}  // namespace tela
