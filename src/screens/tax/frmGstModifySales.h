// Moves the sale lines of a period from one rate of GST to another. What was billed stays as it is.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmGstModifySales : public Screen {
 public:
  explicit frmGstModifySales(AppState& app);

  struct Inputs {
    Period period;
    std::string old_rate;
    std::string new_rate;
  };
  /// The goods sold at the old rate.
  static std::string sql(const Inputs& inputs);
  /// Gives their lines the new rate, and half of it to each of central and state tax.
  static std::string update_sql(const Inputs& inputs);

 private:
  void fill_lists() override;
  void view();
  void update();

  ReportGrid grid_;
};

}  // namespace tela
