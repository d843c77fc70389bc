// A demo shop on its way through the days: its people, its goods and its running numbers.
#pragma once

#include <cstdint>
#include <vector>

#include "apps/tela_catalogue/demo/items.h"
#include "apps/tela_catalogue/demo/parties.h"

namespace tela::demo {

struct Shop {
  std::vector<Supplier> suppliers;
  std::vector<Customer> customers;
  std::vector<BusinessBuyer> buyers;
  std::vector<Item> items;

  // The last number given out of each kind.
  std::int64_t bill = 0;
  std::int64_t business_bill = 0;
  std::int64_t return_note = 0;
  std::int64_t goods_received = 0;
  std::int64_t voucher = 0;
};

}  // namespace tela::demo
