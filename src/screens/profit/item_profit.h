// The family of profit by item: the lines of a period, staged with their percentages in a temporary
// table of the connection, and grouped by item and prices.
#pragma once

#include <string>

#include "report_framework/grid_report.h"

namespace tela {

/// What a screen of the family is, apart from the family.
struct ItemProfitDefinition {
  std::string screen;
  std::string caption;
  std::vector<Control> inputs;  ///< the filter ahead of the period, if there is one
};

class ItemProfitReport : public GridReport {
 public:
  enum class Order { item, percent_rising, percent_falling };

  struct Inputs {
    std::string from;      ///< under "dd/mmm/yyyy"
    std::string to;        ///< likewise
    std::string category;  ///< of the screen that has one
    Order order = Order::item;
  };

  static std::string create_sql();
  static std::string list_sql(Order order);

 protected:
  ItemProfitReport(AppState& app, ItemProfitDefinition definition);

  void fill_lists() override;
  /// The insert of the period's lines into `#TableProfit`.
  virtual std::string insert_sql(const Inputs& inputs) const = 0;
  /// Whether the listing may start; a screen with a filter may refuse.
  virtual bool may_list(Order) { return true; }

 private:
  void list(Order order);
  void stage_lines(Order order);
  void preview();
};

}  // namespace tela
