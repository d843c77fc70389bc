// The sale profit summary: the shop's result of a period in eight boxes, with expenses and bill
// discounts. "TOTAL SALES" and "TOTAL PURCHASE" are what bills came to; the profit rests on the
// sold lines alone.
#pragma once

#include <string>
#include <vector>

#include "report_framework/row_boxes.h"
#include "shell/screen.h"

namespace tela {

class FrmSaleProfit : public Screen {
 public:
  explicit FrmSaleProfit(AppState& app);

  /// A statement of one row, and the boxes that show its fields.
  struct Figures {
    std::string sql;
    std::vector<RowBox> boxes;
  };
  /// What View reads, in its order.
  static std::vector<Figures> figures(const Period& period);
  /// The row of `SaleProfit`. Throws ValueError for a box that holds no number.
  static std::string insert_sql(const Period& period, const Form& form);

 private:
  void fill_lists() override;
  void view();
  void reset();
  void preview();
  void stage(const Period& period);
};

}  // namespace tela
