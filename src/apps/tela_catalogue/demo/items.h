// The items of a demo catalogue and what becomes of them: their rates, their stock, their demand.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/tela_catalogue/demo/amounts.h"
#include "apps/tela_catalogue/demo/random.h"
#include "platform/database/database_client.h"

namespace tela::demo {

struct Item {
  std::int64_t code = 0;
  std::string name;
  std::string long_name;
  std::string barcode;
  std::string category;
  std::size_t supplier = 0;  ///< index into the suppliers
  std::string hsn;
  int gst = 0;   ///< percent
  int cess = 0;  ///< percent
  bool by_weight = false;
  Paise mrp = 0;
  Paise sale_rate = 0;
  Paise cost = 0;  ///< of one unit, tax included; what a sold line keeps as its purchase rate
  Milli opening_stock = 0;
  Milli stock = 0;
  Milli daily_demand = 0;
  int popularity = 0;  ///< its share of all sold lines, against the others' shares
  Date created{};
};

/// `count` items that are sold from `first_day` on, some of them created within the `days` days
/// that follow. Rates obey MRP >= sale rate > cost, but for a few that are sold at a loss or cost
/// nothing. `lines_per_day` is the demand that the items share.
std::vector<Item> make_items(int count, std::size_t suppliers, Date first_day, int days,
                             int lines_per_day, Random& random);

/// Moves an item's rates by some percent, up more often than down.
void change_rates(Item& item, Random& random);

/// Draws items by their popularity among those that are on sale on a day.
class ItemPicker {
 public:
  ItemPicker(const std::vector<Item>& items, Date day);

  /// The index of an item.
  std::size_t pick(Random& random) const;

 private:
  std::vector<std::int64_t> reached_;  ///< the sum of the shares up to and with each item
};

}  // namespace tela::demo
