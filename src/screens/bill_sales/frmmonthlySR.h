// The monthly sales report: the bill list of a period, with three orderings and a guard against
// very long lists.
#pragma once

#include <optional>
#include <string>

#include "report_framework/grid_report.h"

namespace tela {

class frmmonthlySR : public GridReport {
 public:
  explicit frmmonthlySR(AppState& app);

  enum class Order { bill, total_rising, total_falling };
  struct Inputs {
    std::string from;                    ///< under "dd/mmm/yyyy"
    std::string to;                      ///< likewise
    std::optional<std::string> counter;  ///< nothing: all counters
    Order order = Order::bill;
  };
  static std::string sql(const Inputs& inputs);
  /// The lowest and the highest bill number of the same bills.
  static std::string range_sql(const Inputs& inputs);

  /// The longest list that is shown.
  static constexpr int kMostRows = 10000;

 private:
  void fill_lists() override;
  void list(Order order);
  void read_bill_range(const Inputs& inputs);
  void preview();
};

}  // namespace tela
