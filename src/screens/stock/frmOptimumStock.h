// Optimum stock: a minimum level for each item out of what was sold of it in a period, and the
// button that stores the levels with the items.
#pragma once

#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class WayBack;

class frmOptimumStock : public Screen {
 public:
  explicit frmOptimumStock(AppState& app);

  struct Inputs {
    Period period;
    std::string level;     ///< in percent of what was sold, as typed
    std::string supplier;  ///< or "ALL SUPPLIER"
  };
  /// Throws ValueError for a level that is no number.
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void show_credit_days();
  bool refused_view();
  void view();

  void update();
  bool is_stored(int row, int col) const;
  void clear_staging();
  void write_levels(WayBack& way_back);
  void stage_quantities();
  void update_optimum_stock(WayBack& way_back);
  void add_optimum_stock(WayBack& way_back);
  /// Runs the statements and shows how far `work` has come.
  void execute_each(const std::string& work, const std::vector<std::string>& statements);

  ReportGrid grid_;
};

}  // namespace tela
