// What a select that groups or aggregates may say: outside the aggregates, only what it groups by.
#include <algorithm>

#include "platform/tsql/binder.h"

namespace tela::tsql {
namespace {

bool belongs_to(const Expr& column, const Select& select) {
  return std::ranges::any_of(select.from,
                             [&](const TableRef& table) { return table.source == column.source; });
}

bool holds_own_column(ExprPtr& expr, const Select& select) {
  bool found = false;
  for_each_node(expr, [&](ExprPtr& node) {
    found = found || (node->kind == ExprKind::column && belongs_to(*node, select));
  });
  return found;
}

std::string qualified(const Expr& column) {
  return column.qualifier.empty() ? column.name : column.qualifier + "." + column.name;
}

}  // namespace

void Binder::bind_group_by(Select& select, Scope& scope) {
  for (ExprPtr& key : select.group_by) {
    bind_value(key, scope);
    if (holds_subquery(*key)) {
      throw CompileError(
          CompileError::Kind::syntax,
          "Cannot use an aggregate or a subquery in an expression used for the group "
          "by list of a GROUP BY clause.",
          key->position);
    }
    if (!holds_own_column(key, select)) {
      throw CompileError(CompileError::Kind::syntax,
                         "Each GROUP BY expression must contain at least one column that is not an "
                         "outer reference.",
                         key->position);
    }
  }
}

void Binder::check_grouping(Select& select) {
  for (SelectItem& item : select.items) check_grouped(item.value, select, false, "select list");
  if (select.having) check_grouped(select.having, select, false, "HAVING clause");
  for (OrderItem& order : select.order_by) {
    if (!order.item) check_grouped(order.value, select, false, "ORDER BY clause");
  }
}

void Binder::check_grouped(ExprPtr& expr, Select& select, bool is_nested, std::string_view clause) {
  for (ExprPtr& key : select.group_by) {
    if (!same_meaning(*key, *expr)) continue;
    pin_literals(expr);
    pin_literals(key);
    expr->is_group_key = !is_nested;
    return;
  }
  if (!is_nested && is_aggregate(*expr)) return;
  if (expr->kind == ExprKind::column && belongs_to(*expr, select)) {
    throw CompileError(CompileError::Kind::syntax,
                       "Column '" + qualified(*expr) + "' is invalid in the " +
                           std::string(clause) +
                           " because it is not contained in either an aggregate function or the "
                           "GROUP BY clause.",
                       expr->position);
  }
  for_each_child(*expr, [&](ExprPtr& arg) { check_grouped(arg, select, is_nested, clause); });
  if (!expr->select) return;
  for_each_expression(*expr->select,
                      [&](ExprPtr& inner) { check_grouped(inner, select, true, clause); });
}

// What was found equal by its literals is so for these alone.
void Binder::pin_literals(ExprPtr& expr) {
  for_each_node(expr, [&](ExprPtr& node) {
    if (node->kind == ExprKind::literal && !node->literal.is_foreign) {
      pinned_.push_back(node->literal.index);
    }
  });
}

}  // namespace tela::tsql
