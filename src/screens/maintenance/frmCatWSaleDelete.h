// Category whole sale delete: lists the sale lines of one category, removes those lines from the
// wholesale bills, and brings the headers of the period's wholesale bills into line.
#pragma once

#include <string>

#include "report_framework/way_back.h"
#include "screens/maintenance/category_lines.h"

namespace tela {

class frmCatWSaleDelete : public CategoryLinesScreen {
 public:
  static std::string sql(const Inputs& inputs);

  explicit frmCatWSaleDelete(AppState& app);

 private:
  void view();
  void delete_lines();
  void remove_listed(WayBack& way_back);
  void sum_bills(WayBack& way_back, const Period& period);
  void sum_bill(WayBack& way_back, const std::string& bill, const std::string& sum);
};

}  // namespace tela
