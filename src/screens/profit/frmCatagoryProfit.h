// Category profit: the monthly profit report narrowed to one item category.
#pragma once

#include "screens/profit/item_profit.h"

namespace tela {

class frmCatagoryProfit : public ItemProfitReport {
 public:
  explicit frmCatagoryProfit(AppState& app);

  static std::string staging_sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  bool may_list(Order order) override;
  std::string insert_sql(const Inputs& inputs) const override { return staging_sql(inputs); }
};

}  // namespace tela
