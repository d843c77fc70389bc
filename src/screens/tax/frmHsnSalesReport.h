// Sales by HSN code, and the command that writes the items' present codes into all sale lines.
#pragma once

#include <string>
#include <vector>

#include "screens/tax/tax_list.h"

namespace tela {

class frmHsnSalesReport : public TaxListReport {
 public:
  explicit frmHsnSalesReport(AppState& app);

  /// The transactions that split the sales by code and pair of rates.
  static std::vector<Statements> staging(const Period& period);
  static std::string sql(const Period& period);
  /// Writes the items' codes into all sale lines, of whatever date.
  static std::string update_sql();

 private:
  void update();
  void preview();
};

}  // namespace tela
