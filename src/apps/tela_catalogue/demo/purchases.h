// The buying side of a demo shop: goods received, their taxes and how they are paid.
#pragma once

#include "apps/tela_catalogue/demo/rows.h"
#include "apps/tela_catalogue/demo/shop.h"

namespace tela::demo {

/// Orders what runs short at the suppliers whose day it is, takes it into the stock and writes the
/// goods-received notes with their entries in the journal.
void receive_goods(Shop& shop, Date date, Random& random, RowSink& sink);

}  // namespace tela::demo
