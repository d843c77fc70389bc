#include "screens/sales_analysis/item_sales.h"

#include "shell/sql_value.h"

namespace tela::item_sales {

Staging staging(int code, const Period& period, const std::string& filter) {
  return {.clear = "Delete from ItemsSales",
          .insert = "Insert into ItemsSales values(",
          .counted_by = code,
          .values = [=](const GridRow& row) -> std::vector<std::string> {
            return {row.number(code),      row.text(code + 1),  row.numbers(code + 2, code + 5),
                    sql_text(period.from), sql_text(period.to), sql_text(filter)};
          }};
}

}  // namespace tela::item_sales
