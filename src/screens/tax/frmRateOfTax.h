// Sales and purchases by rate of tax, with the cess of each. The one list in which the cess is
// taken out of the sales' taxable value.
#pragma once

#include <string>
#include <vector>

#include "screens/tax/tax_list.h"

namespace tela {

class frmRateOfTax : public TaxListReport {
 public:
  explicit frmRateOfTax(AppState& app);

  /// The transactions that make `#GstTable` and split the sales by rate and cess.
  static std::vector<Statements> staging(const Period& period);
  /// The sales by rate.
  static std::string sql(const Period& period);
  /// The sales by rate and cess, the cess itself in field 4.
  static std::string cess_sql(const Period& period);
  static std::string purchases_sql(const Period& period);
  /// The cess of all purchase bills, of any tax type.
  static std::string purchase_cess_sql(const Period& period);

 private:
  void list(const Period& period) override;
  void write_cess(const Period& period);
  void write_purchase_cess(const Period& period);

  ReportGrid purchases_;
};

}  // namespace tela
