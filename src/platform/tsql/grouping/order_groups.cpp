#include <algorithm>

#include "platform/tsql/grouping/rewrites.h"

namespace tela::tsql {
namespace {

bool orders_by(const Select& select, const Expr& key) {
  return std::ranges::any_of(select.order_by, [&](const OrderItem& order) {
    return same_meaning(order.item ? *select.items[*order.item].value : *order.value, key);
  });
}

}  // namespace

void order_groups(Select& select) {
  // The order by of a union names result columns alone, as that of a distinct does.
  if (select.union_with || select.distinct) return;
  const std::size_t written = select.order_by.size();
  for (const ExprPtr& key : select.group_by) {
    if (written > 0 && orders_by(select, *key)) continue;
    select.order_by.push_back({clone(*key), false, {}});
    select.order_by.back().value->is_group_key = true;
  }
}

}  // namespace tela::tsql
