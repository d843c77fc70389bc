// The family of sales by one filter value: what was sold of one category's or one supplier's items
// in a period, ordered by code, by name, or by quantity rising or falling. A screen of the family
// states its filter.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

/// What a screen of the family is, apart from the family.
struct SalesFilter {
  std::string screen;
  std::string caption;
  std::string label;          ///< of the filter combo
  std::string list_sql;       ///< the values offered
  std::string blank_message;  ///< when none is chosen
  std::string column;         ///< the filter's column, as the grouping names it
  std::string condition;      ///< the same column, as the condition names it
  std::string source;         ///< the select list's last column and the joined tables
  std::string aliased_head;   ///< the select list of the order by code, where it has aliases
  std::string descending;     ///< how the falling order is written
  std::string report_file;
};

class FilteredSales : public Screen {
 public:
  /// The four orderings, one for each list button.
  enum class Order { code, name, quantity_rising, quantity_falling };

  struct Inputs {
    Period period;
    std::string value;  ///< the category or the supplier
    Order order = Order::code;
  };
  static std::string sql(const SalesFilter& filter, const Inputs& inputs);

  FilteredSales(AppState& app, SalesFilter filter);

 private:
  void fill_lists() override;
  void list(Order order);
  void preview();

  SalesFilter filter_;
  ReportGrid grid_;
};

// The screens.

SalesFilter FrmCatagorysale();
SalesFilter frmSupplierSales();

}  // namespace tela
