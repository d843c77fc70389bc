// Which days the rows of a grouped source are of: the client may then read the days in parts.
//
//   select iName, Qty from Sales where BillDate >= @first and BillDate <= @last and Counter = 1
#include <algorithm>
#include <vector>

#include "platform/tsql/engine_names.h"
#include "platform/tsql/grouping/rewrites.h"

namespace tela::tsql {
namespace {

/// What one condition says of a column: a day that it is not before, or not behind, or both.
struct Bounds {
  const Expr* column = nullptr;
  const Expr* first = nullptr;
  const Expr* last = nullptr;
};

bool is_bindable_day(const Expr& expr) {
  return expr.kind == ExprKind::literal && !expr.literal.is_foreign &&
         expr.type.kind == TypeKind::date;
}

bool is_day_column(const Expr& expr) {
  return expr.kind == ExprKind::column && expr.type.kind == TypeKind::date;
}

Bounds bounds_of(const Expr& condition) {
  const bool is_between = condition.kind == ExprKind::between && !condition.negated;
  const bool is_first = condition.op == Operator::greater_equal;
  const bool is_last = condition.op == Operator::less_equal;
  if (!is_between && !is_first && !is_last) return {};
  const Expr& column = *condition.args.front();
  if (!is_day_column(column)) return {};
  if (!std::all_of(condition.args.begin() + 1, condition.args.end(),
                   [](const ExprPtr& day) { return is_bindable_day(*day); })) {
    return {};
  }
  return {&column, is_last ? nullptr : condition.args[1].get(),
          is_first ? nullptr : condition.args.back().get()};
}

// The conditions that every row meets.
void add_conditions(const Expr& where, std::vector<Bounds>& bounds) {
  if (where.op == Operator::logical_and) {
    for (const ExprPtr& part : where.args) add_conditions(*part, bounds);
  } else if (const Bounds found = bounds_of(where); found.column != nullptr) {
    bounds.push_back(found);
  }
}

std::optional<DayRange> range_of(const std::vector<Bounds>& bounds) {
  for (const Bounds& from : bounds) {
    for (const Bounds& to : bounds) {
      if (from.first == nullptr || to.last == nullptr) continue;
      if (!same_meaning(*from.column, *to.column)) continue;
      return DayRange{from.first->literal.index, to.last->literal.index};
    }
  }
  return std::nullopt;
}

bool reads_plain_tables(Select& source) {
  bool is_plain = std::ranges::all_of(source.from, [](const TableRef& table) {
    return !table.derived && !is_temporary(table.info->name);
  });
  for_each_expression(source,
                      [&](ExprPtr& root) { is_plain = is_plain && !holds_subquery(*root); });
  return is_plain;
}

std::size_t count_uses(Select& source, std::size_t literal) {
  std::size_t uses = 0;
  for_each_expression(source, [&](ExprPtr& root) {
    for_each_node(root, [&](ExprPtr& node) {
      const bool is_it = node->kind == ExprKind::literal && !node->literal.is_foreign &&
                         node->literal.index == literal;
      uses += is_it ? 1 : 0;
    });
  });
  return uses;
}

// A part of the days is read under other values for the two literals: they must bound the days and
// mean nothing else.
std::optional<DayRange> days_of(Select& source) {
  if (!source.where || !reads_plain_tables(source)) return std::nullopt;
  std::vector<Bounds> bounds;
  add_conditions(*source.where, bounds);
  const auto range = range_of(bounds);
  if (!range || count_uses(source, range->first) != 1 || count_uses(source, range->last) != 1) {
    return std::nullopt;
  }
  return range;
}

}  // namespace

void divide_groups(Select& select) {
  for (TableRef& table : select.from) {
    if (!table.group_plan.empty()) table.group_days = days_of(*table.derived);
  }
}

}  // namespace tela::tsql
