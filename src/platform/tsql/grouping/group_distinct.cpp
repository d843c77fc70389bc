#include <algorithm>

#include "platform/tsql/grouping/rewrites.h"

namespace tela::tsql {
namespace {

bool is_constant(const Expr& expr) {
  return expr.kind == ExprKind::literal || expr.kind == ExprKind::null_value;
}

}  // namespace

void group_distinct(Select& select) {
  if (!select.distinct || select.is_grouped || select.from.empty()) return;
  if (std::ranges::any_of(select.items, [](auto& item) { return holds_subquery(*item.value); }))
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

}  // namespace tela::tsql
