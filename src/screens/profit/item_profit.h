// Profit by item: the lines of a period staged in a temporary table of the connection, and grouped
// by item and prices. What the screens by item share.
#pragma once

#include <functional>
#include <string>

#include "screens/profit/profit_report.h"

namespace tela::item_profit {

/// The eleven columns; the last, the percentage, is written under `percent_mask`.
GridColumns columns(std::string percent_mask);
/// A row's values of `MonthlyProfit`, see StagedProfit.
std::vector<std::string> staged(const GridRow& row);

/// A screen by item; `filters` stand ahead of its period.
ProfitDefinition definition(std::string screen, std::string caption,
                            std::vector<Control> filters = {});

std::string create_sql();
std::string list_sql(ProfitOrder order);

/// Creates `#TableProfit` and fills it by `insert_sql` in one transaction, calls `list`, and drops
/// the table. A failure anywhere in between leaves none behind.
void with_table(AppState& app, const std::string& insert_sql, const std::function<void()>& list);

/// Writes the present stock at purchase rate, of all items, into a box.
void write_stock_value(AppState& app, Form& form, std::string_view box = "tStock");

}  // namespace tela::item_profit
