// Profit by item: the lines of a period staged in a temporary table of the connection, and grouped
// by item and prices. What the two screens by item share.
#pragma once

#include <functional>
#include <string>

#include "screens/profit/profit_report.h"

namespace tela::item_profit {

/// A screen by item; `filters` stand ahead of its period.
ProfitDefinition definition(std::string screen, std::string caption,
                            std::vector<Control> filters = {});

std::string create_sql();
std::string list_sql(ProfitOrder order);

/// Creates `#TableProfit` and fills it by `insert_sql` in one transaction, calls `list`, and drops
/// the table. A failure anywhere in between leaves none behind.
void with_table(AppState& app, const std::string& insert_sql, const std::function<void()>& list);

/// Writes the present stock at purchase rate, of all items, into `tStock`.
void write_stock_value(AppState& app, Form& form);

}  // namespace tela::item_profit
