#include "platform/tsql/ast.h"

#include <algorithm>
#include <set>

#include "platform/tsql/functions.h"
#include "platform/tsql/lexer.h"

namespace tela::tsql {
namespace {

ExprPtr clone(const ExprPtr& expr) {
  return expr ? clone(*expr) : nullptr;
}
SelectPtr clone(const SelectPtr& select) {
  return select ? clone(*select) : nullptr;
}

std::vector<ExprPtr> clone(const std::vector<ExprPtr>& list) {
  std::vector<ExprPtr> copies;
  copies.reserve(list.size());
  for (const ExprPtr& expr : list) copies.push_back(clone(expr));
  return copies;
}

TableRef clone(const TableRef& table) {
  return {table.join,      table.position, table.table, table.alias,      clone(table.derived),
          clone(table.on), table.source,   table.info,  table.group_plan, table.group_days};
}

void add_sources(const Select& select, std::set<int>& sources) {
  for (const TableRef& table : select.from) {
    sources.insert(table.source);
    if (table.derived) add_sources(*table.derived, sources);
  }
  if (select.union_with) add_sources(*select.union_with, sources);
}

}  // namespace

void for_each_child(Expr& expr, const std::function<void(ExprPtr&)>& visit) {
  for (ExprPtr& arg : expr.args) visit(arg);
}

void for_each_expression(Select& select, const std::function<void(ExprPtr&)>& visit) {
  const auto visit_if_there = [&](ExprPtr& expr) {
    if (expr) visit(expr);
  };
  for (SelectItem& item : select.items) visit(item.value);
  for (TableRef& table : select.from) {
    if (table.derived) for_each_expression(*table.derived, visit);
    visit_if_there(table.on);
  }
  visit_if_there(select.where);
  for (ExprPtr& key : select.group_by) visit(key);
  visit_if_there(select.having);
  if (select.union_with) for_each_expression(*select.union_with, visit);
  for (OrderItem& item : select.order_by) visit_if_there(item.value);
}

void for_each_node(ExprPtr& expr, const std::function<void(ExprPtr&)>& visit) {
  visit(expr);
  const auto descend = [&](ExprPtr& below) { for_each_node(below, visit); };
  for_each_child(*expr, descend);
  if (expr->select) for_each_expression(*expr->select, descend);
}

bool holds_subquery(const Expr& expr) {
  return expr.select ||
         std::ranges::any_of(expr.args, [](const ExprPtr& arg) { return holds_subquery(*arg); });
}

void for_each_own_node(ExprPtr& expr, const std::function<void(ExprPtr&)>& visit) {
  visit(expr);
  for_each_child(*expr, [&](ExprPtr& below) { for_each_own_node(below, visit); });
}

bool reads_outer_columns(Select& select) {
  std::set<int> own;
  bool reads_outer = false;
  add_sources(select, own);
  for_each_expression(select, [&](ExprPtr& root) {
    for_each_node(root, [&](ExprPtr& node) {
      if (node->select) add_sources(*node->select, own);
      const bool is_outer = node->source >= 0 && !own.contains(node->source);
      reads_outer = reads_outer || is_outer;
    });
  });
  return reads_outer;
}

bool is_aggregate(const Expr& expr) {
  return expr.function != nullptr && expr.function->kind == FunctionKind::aggregate;
}

bool is_simple_aggregate(const Expr& aggregate) {
  const Expr& arg = *aggregate.args[0];
  return !aggregate.distinct && (arg.kind == ExprKind::star || arg.type.kind != TypeKind::null);
}

ExprPtr clone(const Expr& expr) {
  auto copy = std::make_unique<Expr>();
  copy->kind = expr.kind;
  copy->position = expr.position;
  copy->depth = expr.depth;
  copy->qualifier = expr.qualifier;
  copy->name = expr.name;
  copy->op = expr.op;
  copy->negated = expr.negated;
  copy->distinct = expr.distinct;
  copy->has_else = expr.has_else;
  copy->literal = expr.literal;
  copy->args = clone(expr.args);
  copy->select = clone(expr.select);
  copy->type = expr.type;
  copy->source = expr.source;
  copy->column = expr.column;
  copy->is_group_key = expr.is_group_key;
  copy->function = expr.function;
  copy->target = expr.target;
  copy->style = expr.style;
  copy->fits_column = expr.fits_column;
  return copy;
}

SelectPtr clone(const Select& select) {
  auto copy = std::make_unique<Select>();
  copy->distinct = select.distinct;
  copy->top = select.top;
  for (const SelectItem& item : select.items) {
    copy->items.push_back({clone(item.value), item.alias});
  }
  for (const TableRef& table : select.from) copy->from.push_back(clone(table));
  copy->where = clone(select.where);
  copy->group_by = clone(select.group_by);
  copy->having = clone(select.having);
  copy->union_with = clone(select.union_with);
  copy->union_all = select.union_all;
  for (const OrderItem& item : select.order_by) {
    copy->order_by.push_back({clone(item.value), item.descending, item.item});
  }
  copy->is_grouped = select.is_grouped;
  return copy;
}

bool same_meaning(const Expr& left, const Expr& right) {
  if (left.kind != right.kind || left.op != right.op || left.negated != right.negated ||
      left.distinct != right.distinct || left.has_else != right.has_else || left.select ||
      right.select || !(left.type == right.type)) {
    return false;
  }
  if (left.kind == ExprKind::column) {
    return left.source == right.source && left.column == right.column;
  }
  return same_name(left.name, right.name) && left.literal == right.literal &&
         left.style == right.style &&
         std::equal(left.args.begin(), left.args.end(), right.args.begin(), right.args.end(),
                    [](const ExprPtr& a, const ExprPtr& b) { return same_meaning(*a, *b); });
}

}  // namespace tela::tsql
