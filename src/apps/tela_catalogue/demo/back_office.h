// What happens behind the tills of a demo shop: rates, stock counts, expenses, customers' payments.
#pragma once

#include "apps/tela_catalogue/demo/rows.h"
#include "apps/tela_catalogue/demo/shop.h"

namespace tela::demo {

/// The work of one day before the shop opens, and its entries.
void do_office_work(Shop& shop, Date date, Random& random, RowSink& sink);

/// The rows that stand for the shop as it is: items, optimum levels, suppliers, gifts.
void write_masters(const Shop& shop, RowSink& sink);

}  // namespace tela::demo
