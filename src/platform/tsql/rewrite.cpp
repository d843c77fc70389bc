#include "platform/tsql/rewrite.h"

#include <vector>

#include "platform/tsql/grouping/rewrites.h"

namespace tela::tsql {
namespace {

using Rewrite = void (*)(Select&);

/// The rewrites in the order in which they apply: those of a select ahead of its tables, and those
/// behind them.
struct Rewrites {
  std::vector<Rewrite> ahead;
  std::vector<Rewrite> behind;
};

Rewrites rewrites(Grouping grouping) {
  if (grouping == Grouping::by_engine) return {{}, {group_distinct, order_groups}};
  return {{decorrelate_sums}, {group_distinct, order_groups, hash_groups, divide_groups}};
}

void rewrite(Select& select, const Rewrites& rewrites) {
  for (Select* core = &select; core != nullptr; core = core->union_with.get()) {
    for (const Rewrite apply : rewrites.ahead) apply(*core);
    for (TableRef& table : core->from) {
      if (table.derived) rewrite(*table.derived, rewrites);
    }
    for (const Rewrite apply : rewrites.behind) apply(*core);
  }
  const std::function<void(ExprPtr&)> rewrite_below = [&](ExprPtr& expr) {
    for_each_child(*expr, rewrite_below);
    if (expr->select) rewrite(*expr->select, rewrites);
  };
  for_each_expression(select, rewrite_below);
}

}  // namespace

void rewrite(Select& select, Grouping grouping) {
  rewrite(select, rewrites(grouping));
}

}  // namespace tela::tsql
