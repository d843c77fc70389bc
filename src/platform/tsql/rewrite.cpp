#include "platform/tsql/rewrite.h"

#include <vector>

#include "platform/tsql/rewrites.h"

namespace tela::tsql {
namespace {

using Rewrite = void (*)(Select&);

// In the order in which they apply.
std::vector<Rewrite> rewrites(Grouping grouping) {
  std::vector<Rewrite> list{group_distinct, order_groups};
  if (grouping == Grouping::by_client) list.insert(list.end(), {hash_groups, divide_groups});
  return list;
}

void rewrite(Select& select, const std::vector<Rewrite>& list) {
  for (Select* core = &select; core != nullptr; core = core->union_with.get()) {
    for (TableRef& table : core->from) {
      if (table.derived) rewrite(*table.derived, list);
    }
    for (const Rewrite apply : list) apply(*core);
  }
  const std::function<void(ExprPtr&)> rewrite_below = [&](ExprPtr& expr) {
    for_each_child(*expr, rewrite_below);
    if (expr->select) rewrite(*expr->select, list);
  };
  for_each_expression(select, rewrite_below);
}

}  // namespace

void rewrite(Select& select, Grouping grouping) {
  rewrite(select, rewrites(grouping));
}

}  // namespace tela::tsql
