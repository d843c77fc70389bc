#include "screens/sales_analysis/item_sales.h"

#include "platform/text/number_text.h"
#include "shell/database_gateway.h"

namespace tela::item_sales {

Staging staging(const Grid& grid, const Preview& preview) {
  const auto insert = [&grid, preview](int row) -> std::string {
    const int code = preview.code;
    if (Val(grid.TextMatrix(row, code)) <= 0) return {};
    return "Insert into ItemsSales values(" + grid.TextMatrix(row, code) + ",'" +
           quoted_cell(grid, row, code + 1) + "'," + bare_cells(grid, row, code + 2, code + 5) +
           ",'" + preview.from + "','" + preview.to + "','" + sql_quoted(preview.filter) + "')";
  };
  return {"Delete from ItemsSales", insert};
}

}  // namespace tela::item_sales
