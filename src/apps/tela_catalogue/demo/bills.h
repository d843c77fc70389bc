// The making of bills: what is sold, at which rate, and how it is paid.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/tela_catalogue/demo/shop.h"

namespace tela::demo {

struct BillLine {
  std::size_t item = 0;  ///< index into the shop's items
  Paise mrp = 0;
  Paise rate = 0;
  Paise list_rate = 0;  ///< the item's own rate; differs where the rate was changed at the till
  Paise cost = 0;
  Milli quantity = 0;  ///< below 0 for a return
  Paise amount() const { return value_of(rate, quantity); }
};

/// How a bill was paid. `cash` is what the customer handed over, `change` what went back.
struct Payment {
  Paise cash = 0;
  Paise card = 0;
  Paise meals = 0;
  Paise mobile = 0;
  std::string mobile_kind;
  Paise points = 0;  ///< a point is worth a rupee
  Paise change = 0;
};

struct Bill {
  std::int64_t number = 0;
  Date date{};
  TimeOfDay time{};
  TimeOfDay opened{};
  int counter = 0;
  std::string staff;
  std::string type;
  std::optional<std::size_t> customer;  ///< index into the shop's customers
  std::int64_t points_before = 0;
  std::int64_t points_earned = 0;
  std::vector<BillLine> lines;
  Paise net = 0;
  Paise discount = 0;
  Payment payment;

  Paise total() const { return net - discount; }
  /// What the lines would have come to at the maximum retail price.
  Paise mrp_value() const;
};

/// Makes the next bill of `shop`, takes its goods from the stock and books the customer's points
/// and debt.
Bill make_bill(Shop& shop, const ItemPicker& picker, Date date, TimeOfDay time, Random& random);

/// Some lines of goods, none returned: what a business buyer takes home.
std::vector<BillLine> make_lines(const Shop& shop, const ItemPicker& picker, int count,
                                 Random& random);

}  // namespace tela::demo
