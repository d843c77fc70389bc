// Item-wise purchases in their plain form: quantities and value by item and rate. No menu offers
// it.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmIWPurRep : public Screen {
 public:
  explicit frmIWPurRep(AppState& app);
  static std::string sql(const Period& period);

 private:
  void view();
  void preview();

  ReportGrid grid_;
};

}  // namespace tela
