// Sales with their tax: day by day above, rate by rate below.
#pragma once

#include <string>
#include <vector>

#include "screens/tax/tax_list.h"

namespace tela {

class frmDateWise : public TaxListReport {
 public:
  explicit frmDateWise(AppState& app);

  /// The transactions that split the bills of the period by their pairs of rates.
  static std::vector<Statements> staging(const Period& period);
  /// The days of the upper grid.
  static std::string sql(const Period& period);
  /// The rates of the lower grid.
  static std::string rates_sql(const Period& period);

 private:
  void list(const Period& period) override;
  void preview();

  ReportGrid rates_;
};

}  // namespace tela
