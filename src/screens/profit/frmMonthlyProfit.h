// The monthly profit report: what was sold in a period with its profit, one row for each item and
// its prices.
#pragma once

#include "screens/profit/item_profit.h"

namespace tela {

class frmMonthlyProfit : public ItemProfitReport {
 public:
  explicit frmMonthlyProfit(AppState& app);

  static std::string staging_sql(const Inputs& inputs);

 private:
  std::string insert_sql(const Inputs& inputs) const override { return staging_sql(inputs); }
};

}  // namespace tela
