// Bill-wise profit: every bill of a period with its sale value, its purchase value, its profit and
// the plain average of its lines' percentages.
#pragma once

#include <string>

#include "report_framework/grid_report.h"

namespace tela {

class frmBillWiseProfit : public GridReport {
 public:
  explicit frmBillWiseProfit(AppState& app);

  enum class Order { bill, percent_rising, percent_falling };

  /// The insert of the period's lines into `BillWiseProfit`; the dates are under "dd/mmm/yyyy".
  static std::string staging_sql(const std::string& from, const std::string& to, Order order);
  static std::string list_sql(Order order);

 private:
  void list(Order order);
  void stage_lines(Order order);
  void preview();
};

}  // namespace tela
