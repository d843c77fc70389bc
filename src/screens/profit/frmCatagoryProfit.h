// Category profit: the monthly profit report narrowed to one item category.
#pragma once

#include <string>

#include "screens/profit/profit_report.h"

namespace tela {

class frmCatagoryProfit : public ProfitReport {
 public:
  explicit frmCatagoryProfit(AppState& app);

  struct Inputs {
    Period period;
    std::string category;
  };
  /// The insert of the period's lines into `#TableProfit`, the same for all three orders.
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  bool may_list(ProfitOrder order) override;
  void with_staged_lines(const Period& period, ProfitOrder order,
                         const std::function<void()>& list) override;
};

}  // namespace tela
