// What a select asks of other rows for each row of its own, asked for all rows at once:
//
//   select iName, (select isnull(sum(Qty), 0) from Sales where Sales.iCode = Items.iCode and
//     BillDate < @day) from Items
//   select iName, isnull(isnull(s.c1, null), 0) from Items left join (select iCode as c0, sum(Qty)
//   as c1 from
//     Sales where BillDate < @day group by iCode) as s on s.c0 = Items.iCode
//
// Where an index leads to the rows of a key, asking for each is quicker and stays. Else every
// question reads the whole table.
//
// The sums of keys that nobody asks for are made too. So nothing may fail on the way to them, and
// it is done where most keys are asked for: a select without a limit, whose rows are not picked by
// a value, and sums over days.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/tsql/functions.h"
#include "platform/tsql/grouping/rewrites.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

// The engine joins 64 tables.
constexpr std::size_t most_tables = 60;

bool is_of(const Expr& column, const std::vector<TableRef>& tables) {
  return std::ranges::any_of(tables,
                             [&](const TableRef& table) { return table.source == column.source; });
}

bool is_column_of(const Expr& expr, const std::vector<TableRef>& tables) {
  return expr.kind == ExprKind::column && is_of(expr, tables);
}

// Whether an expression gives a value for every row, and reads these tables alone.
bool is_safe(ExprPtr& expr, const std::vector<TableRef>& tables) {
  bool is_safe = true;
  for_each_node(expr, [&](ExprPtr& node) {
    switch (node->kind) {
      case ExprKind::column:
        is_safe = is_safe && is_of(*node, tables);
        return;
      case ExprKind::binary:
        is_safe = is_safe && node->op != Operator::divide && node->op != Operator::modulo;
        return;
      case ExprKind::call:
        is_safe = is_safe && node->function->kind == FunctionKind::choice;
        return;
      case ExprKind::literal:
      case ExprKind::null_value:
      case ExprKind::unary:
      case ExprKind::is_null:
      case ExprKind::in_list:
      case ExprKind::between:
      case ExprKind::like:
      case ExprKind::simple_case:
      case ExprKind::searched_case:
        return;
      default:
        is_safe = false;
    }
  });
  return is_safe;
}

// The conditions that a row must all meet.
void add_conditions(ExprPtr& where, std::vector<ExprPtr*>& conditions) {
  if (!where) return;
  if (where->op != Operator::logical_and) return conditions.push_back(&where);
  for (ExprPtr& part : where->args) add_conditions(part, conditions);
}

bool is_literal(const ExprPtr& expr) {
  return expr->kind == ExprKind::literal;
}

// Whether a condition compares a column of days with a day or two.
bool bounds_days(const Expr& condition) {
  const bool compares =
      (condition.op >= Operator::equal && condition.op <= Operator::greater_equal) ||
      condition.kind == ExprKind::between;
  return compares && condition.args[0]->kind == ExprKind::column &&
         condition.args[0]->type.kind == TypeKind::date &&
         std::all_of(condition.args.begin() + 1, condition.args.end(), is_literal);
}

// Whether a condition leaves a few rows of many: those of a value.
bool picks_rows(const Expr& condition) {
  return (condition.op == Operator::equal && std::ranges::any_of(condition.args, is_literal)) ||
         ((condition.kind == ExprKind::in_list || condition.kind == ExprKind::in_select) &&
          !condition.negated);
}

bool reads_most_rows(Select& select) {
  if (select.from.empty() || select.is_grouped || select.distinct || select.top) return false;
  std::vector<ExprPtr*> conditions;
  add_conditions(select.where, conditions);
  return std::ranges::none_of(conditions, [](auto* part) { return picks_rows(**part); }) &&
         !reads_outer_columns(select);
}

// A sum of whole numbers may be too large, others not.
bool is_safe_aggregate(Expr& aggregate, const std::vector<TableRef>& tables) {
  if (!is_simple_aggregate(aggregate)) return false;
  ExprPtr& arg = aggregate.args[0];
  if (arg->kind == ExprKind::star) return true;
  const std::string_view name = aggregate.function->name;
  const bool adds_up = name == "sum" || name == "avg";
  return is_safe(arg, tables) && !(adds_up && is_whole(arg->type));
}

ExprPtr make_column(int source, std::size_t number, const Type& type) {
  auto column = std::make_unique<Expr>();
  column->kind = ExprKind::column;
  column->source = source;
  column->column = "c" + std::to_string(number);
  column->type = type;
  return column;
}

// One select in brackets of an outer one, in the form that the head of this file shows.
class Sums {
 public:
  Sums(Select& outer, Select& inner) : outer_(outer), inner_(inner) {}

  bool should_join() {
    const bool has_form = !inner_.union_with && !inner_.top && !inner_.distinct &&
                          inner_.group_by.empty() && !inner_.having && inner_.is_grouped &&
                          !inner_.from.empty() && inner_.order_by.empty();
    return has_form && are_tables_safe() && are_conditions_safe() && is_result_safe();
  }

  /// Gives what stands in the place of the brackets; the sums are then a table of the outer select.
  ExprPtr join() {
    source_ = inner_.from.front().source;
    ExprPtr result = std::move(inner_.items[0].value);
    auto sums = std::make_unique<Select>();
    add_item(*sums, clone(own_key()));
    sums->group_by.push_back(clone(own_key()));
    sums->items[0].value->is_group_key = true;
    sums->is_grouped = true;
    take_aggregates(result, *sums);
    add_table(std::move(sums));
    return result;
  }

 private:
  bool are_tables_safe() {
    return std::ranges::all_of(inner_.from, [&](TableRef& table) {
      return !table.derived && (!table.on || is_safe(table.on, inner_.from));
    });
  }

  // All conditions are the inner select's own, but for one that looks its rows up.
  bool are_conditions_safe() {
    bool has_days = false;
    std::vector<ExprPtr*> conditions;
    add_conditions(inner_.where, conditions);
    for (ExprPtr* condition : conditions) {
      if (is_safe(*condition, inner_.from)) {
        has_days = has_days || bounds_days(**condition);
        own_.push_back(condition);
      } else if (key_ == nullptr && is_lookup(**condition)) {
        key_ = condition;
      } else {
        return false;
      }
    }
    return has_days && key_ != nullptr && !is_indexed(own_key());
  }

  // An index of texts has another order than their comparison.
  bool is_indexed(const Expr& key) const {
    const auto table = std::ranges::find_if(
        inner_.from, [&](const TableRef& candidate) { return candidate.source == key.source; });
    const auto column = std::ranges::find_if(
        table->info->columns,
        [&](const ColumnInfo& candidate) { return candidate.name == key.column; });
    return column->leads_index && !is_text(key.type);
  }

  bool is_lookup(const Expr& condition) {
    if (condition.op != Operator::equal) return false;
    const Expr& left = *condition.args[0];
    const Expr& right = *condition.args[1];
    own_side_ = is_column_of(left, inner_.from) ? 0 : 1;
    return (is_column_of(left, inner_.from) && is_column_of(right, outer_.from)) ||
           (is_column_of(right, inner_.from) && is_column_of(left, outer_.from));
  }

  bool is_result_safe() {
    ExprPtr& result = inner_.items[0].value;
    bool is_safe = !holds_subquery(*result);
    for_each_own_node(result, [&](ExprPtr& node) {
      if (is_aggregate(*node)) is_safe = is_safe && is_safe_aggregate(*node, inner_.from);
    });
    return is_safe;
  }

  const Expr& own_key() const { return *(*key_)->args[own_side_]; }
  const Expr& outer_key() const { return *(*key_)->args[1 - own_side_]; }

  static void add_item(Select& sums, ExprPtr value) {
    const std::string name = "c" + std::to_string(sums.items.size());
    sums.items.push_back({std::move(value), name});
  }

  void take_aggregates(ExprPtr& result, Select& sums) const {
    for_each_own_node(result, [&](ExprPtr& node) {
      if (!is_aggregate(*node)) return;
      ExprPtr column = make_column(source_, sums.items.size(), node->type);
      ExprPtr of_no_rows = over_no_rows(*node);
      add_item(sums, std::move(node));
      node = if_null(std::move(column), std::move(of_no_rows));
    });
  }

  static ExprPtr over_no_rows(const Expr& aggregate) {
    auto value = std::make_unique<Expr>();
    if (aggregate.function->name != "count") return value;
    value->kind = ExprKind::literal;
    value->literal = {{LiteralKind::integer, "0"}, 0, true};
    value->type = int_type;
    return value;
  }

  // A null for a null too: where the engine sees that a condition leaves no nulls, it takes the
  // join for an inner one, and the rows come in another order.
  static ExprPtr if_null(ExprPtr column, ExprPtr other) {
    auto call = std::make_unique<Expr>();
    call->kind = ExprKind::call;
    call->function = find_function("isnull");
    call->type = column->type;
    call->args.push_back(std::move(column));
    call->args.push_back(std::move(other));
    return call;
  }

  // The key of the sums has no declared type. A sign takes the type of the column away too: only
  // then does the engine make an index of the sums.
  static ExprPtr as_plain_value(ExprPtr column) {
    auto value = std::make_unique<Expr>();
    value->kind = ExprKind::unary;
    value->op = Operator::plus;
    value->type = column->type;
    value->args.push_back(std::move(column));
    return value;
  }

  void add_table(SelectPtr sums) {
    TableRef table;
    table.join = JoinKind::left;
    table.source = source_;
    table.on = std::make_unique<Expr>();
    table.on->kind = ExprKind::binary;
    table.on->op = Operator::equal;
    table.on->args.push_back(make_column(source_, 0, own_key().type));
    table.on->args.push_back(as_plain_value(clone(outer_key())));
    for (ExprPtr* condition : own_) add_condition(sums->where, std::move(*condition));
    sums->from = std::move(inner_.from);
    table.derived = std::move(sums);
    outer_.from.push_back(std::move(table));
  }

  static void add_condition(ExprPtr& where, ExprPtr condition) {
    if (!where) {
      where = std::move(condition);
      return;
    }
    auto both = std::make_unique<Expr>();
    both->kind = ExprKind::binary;
    both->op = Operator::logical_and;
    both->args.push_back(std::move(where));
    both->args.push_back(std::move(condition));
    where = std::move(both);
  }

  Select& outer_;
  Select& inner_;
  std::vector<ExprPtr*> own_;
  ExprPtr* key_ = nullptr;
  std::size_t own_side_ = 0;
  int source_ = 0;
};

}  // namespace

void decorrelate_sums(Select& select) {
  if (!reads_most_rows(select)) return;
  for (SelectItem& item : select.items) {
    for_each_own_node(item.value, [&](ExprPtr& node) {
      if (node->kind != ExprKind::subquery || select.from.size() >= most_tables) return;
      Sums sums(select, *node->select);
      if (!sums.should_join()) return;
      ExprPtr result = sums.join();
      node = std::move(result);
    });
  }
}

}  // namespace tela::tsql
