// Bill-wise profit: every bill of a period with its sale value, its purchase value, its profit and
// the plain average of its lines' percentages.
#pragma once

#include <string>

#include "screens/profit/profit_report.h"

namespace tela {

class frmBillWiseProfit : public ProfitReport {
 public:
  explicit frmBillWiseProfit(AppState& app);

  struct Inputs {
    Period period;
    ProfitOrder order = ProfitOrder::key;
  };
  /// The insert of the period's lines into `BillWiseProfit`.
  static std::string sql(const Inputs& inputs);
  static std::string list_sql(ProfitOrder order);

 private:
  void with_staged_lines(const Period& period, ProfitOrder order,
                         const std::function<void()>& list) override;
};

}  // namespace tela
