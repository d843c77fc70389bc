// The family of sale lines of one item category, bill by bill, in a period. A screen of the family
// states how it lists and what its buttons do.
#pragma once

#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

/// What a screen of the family is, apart from the family.
struct CategoryLines {
  std::string screen;
  std::string caption;
  std::string list_caption;  ///< of `cmdView`
  std::vector<Control> buttons;
  std::vector<Control> totals;
  std::string amount_total;    ///< the one of the totals that shows the sum of the amounts
  std::string quantity_total;  ///< and that of the quantities
};

class CategoryLinesScreen : public Screen {
 public:
  struct Inputs {
    Period period;
    std::string category;
  };

 protected:
  CategoryLinesScreen(AppState& app, CategoryLines lines);

  Inputs take_inputs() { return {take_period(), filter()}; }
  const ReportGrid& lines() const { return grid_; }

 private:
  void fill_lists() override;
  void preview();

  ReportGrid grid_;
};

}  // namespace tela
