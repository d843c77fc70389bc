// Small shops made by chance, harder than the demo's.
#pragma once

#include <string>

#include "shops/rows.h"
#include "support/shop.h"

namespace tela::testing {

/// The days of a shop's trade: some of them pass without a bill.
struct Season {
  std::string first;  ///< such as "2024-02-27"
  std::string last;
};

/// A shop: all rows of its tables, and its season. The same seed gives the same shop everywhere.
struct InventedShop {
  Rows rows;
  Season season;
};

/// Returns, wholly returned bills, null payments, amounts of nothing and too wide for a column,
/// rates of every kind, names of several alphabets with quotes and blanks, bills without lines,
/// lines without bills, items and suppliers that are gone, leap days and ends of years.
InventedShop invent_shop(unsigned seed);

/// The statement that stores a row.
std::string insert_sql(const Row& row);
/// Empties the catalogue's shared tables and stores these rows in their place.
void stock_shop(Shop& shop, const Rows& rows);

/// A day some days on: "2024-02-28" and 2 give "2024-03-01".
std::string later(const std::string& day, int days);

}  // namespace tela::testing
