// The family of item-wise sales: one row for each item, name, price and rate that was sold, for a
// day or for a period. What the two screens share is their preview.
#pragma once

#include <string>

#include "report_framework/staging.h"
#include "shell/period.h"

namespace tela::item_sales {

inline constexpr int kCounters = 4;
inline const std::string kMask = "######0.00";

/// The staging of rows whose item code is above 0 into `ItemsSales`. `code` is the column of the
/// item code; the five columns behind it follow in order. `filter` is the text of the counter
/// combo.
Staging staging(int code, const Period& period, const std::string& filter);

inline constexpr const char* kQuestion = "DO YOU WANT TO PRINT - (OK To Print, Cancel To Exit ) ";
inline constexpr std::string_view kReportFile = "ItemsReport.rpt";
inline constexpr std::string_view kReportQuery = "SELECT * FROM ItemsSales";

}  // namespace tela::item_sales
