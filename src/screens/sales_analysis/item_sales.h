// The family of item-wise sales: one row for each item, name, price and rate that was sold, for a
// day or for a period. The two screens share their staging rows.
#pragma once

#include <string>

#include "report_framework/grid_report.h"

namespace tela::item_sales {

inline constexpr int kCounters = 4;
inline const std::string kMask = "######0.00";

/// Asks, stages the rows of `grid` whose item code is above 0 into `ItemsSales`, and opens the
/// report. `code` is the column of the item code; the five columns behind it follow in order.
struct Preview {
  int code = 0;
  std::string from;    ///< under "dd/mmm/yyyy"
  std::string to;      ///< likewise
  std::string filter;  ///< the text of the counter combo, trimmed
};
Staging staging(const Grid& grid, const Preview& preview);

inline constexpr std::string_view kQuestion =
    "DO YOU WANT TO PRINT - (OK To Print, Cancel To Exit ) ";
inline constexpr std::string_view kReportFile = "ItemsReport.rpt";
inline constexpr std::string_view kReportQuery = "SELECT * FROM ItemsSales";

}  // namespace tela::item_sales
