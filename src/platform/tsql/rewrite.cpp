#include "platform/tsql/rewrite.h"

#include <algorithm>
#include <array>

namespace tela::tsql {
namespace {

bool is_constant(const Expr& expr) {
  return expr.kind == ExprKind::literal || expr.kind == ExprKind::null_value;
}

bool holds_subquery(ExprPtr& expr) {
  bool found = false;
  for_each_node(expr, [&](ExprPtr& node) { found = found || node->select != nullptr; });
  return found;
}

// distinct -> group by all columns: of several spellings that are one text, the group shows the
// same one whichever way the rows are read.
void group_distinct(Select& select) {
  if (!select.distinct || select.is_grouped || select.from.empty()) return;
  if (std::ranges::any_of(select.items, [](auto& item) { return holds_subquery(item.value); }))
    return;
  std::vector<ExprPtr> keys;
  for (const SelectItem& item : select.items) {
    if (!is_constant(*item.value)) keys.push_back(clone(*item.value));
  }
  if (keys.empty()) return;
  for (SelectItem& item : select.items) item.value->is_group_key = !is_constant(*item.value);
  select.group_by = std::move(keys);
  select.distinct = false;
  select.is_grouped = true;
}

using Rewrite = void (*)(Select&);
constexpr std::array<Rewrite, 1> rewrites{group_distinct};

void rewrite_below(ExprPtr& expr) {
  for_each_child(*expr, rewrite_below);
  if (expr->select) rewrite(*expr->select);
}

}  // namespace

void rewrite(Select& select) {
  for (Select* core = &select; core != nullptr; core = core->union_with.get()) {
    for (TableRef& table : core->from) {
      if (table.derived) rewrite(*table.derived);
    }
    for (const Rewrite apply : rewrites) apply(*core);
  }
  for_each_expression(select, rewrite_below);
}

}  // namespace tela::tsql
