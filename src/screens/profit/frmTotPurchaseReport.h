// Purchase bills of suppliers of tax type "TOT", and the one place where a purchase bill can be
// deleted, with its ledger entries and its payments.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class WayBack;

class frmTotPurchaseReport : public Screen {
 public:
  explicit frmTotPurchaseReport(AppState& app);

  static std::string sql(const Period& period);

 private:
  void view();
  void choose();
  void look_up_voucher();
  bool refused_selection();
  void delete_bill();
  /// Deletes the rows with `number` in the column `key`.
  void remove(WayBack& way_back, const std::string& table, const std::string& key,
              const std::string& number);
  void delete_header_and_lines(WayBack& way_back, const std::string& bill);
  void delete_payment_entries(WayBack& way_back, const std::string& bill);
  void delete_payments(WayBack& way_back, const std::string& bill);

  ReportGrid grid_;
};

}  // namespace tela
