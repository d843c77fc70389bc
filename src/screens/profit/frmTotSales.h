// Sales of the items of suppliers of tax type "TOT", by bill type.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmTotSales : public Screen {
 public:
  explicit frmTotSales(AppState& app);

  struct Inputs {
    Period period;
    std::string bill_type;  ///< or "ALL SALES"
  };
  static std::string sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();

  ReportGrid grid_;
};

}  // namespace tela
