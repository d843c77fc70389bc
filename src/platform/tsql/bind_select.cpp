// Selects and unions.
#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/conversions.h"
#include "platform/tsql/lexer.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

constexpr std::size_t most_columns = 1000;  // the engine's limit is 2000

[[noreturn]] void throw_syntax(const std::string& message, std::size_t position) {
  throw CompileError(CompileError::Kind::syntax, message, position);
}

// The name of a result column: the alias, else the column's name as it is written.
const std::string& item_name(const SelectItem& item) {
  static const std::string none;
  if (!item.alias.empty()) return item.alias;
  return item.value->kind == ExprKind::column ? item.value->name : none;
}

std::vector<ResultColumn> result_columns(const Select& select) {
  std::vector<ResultColumn> columns;
  for (const SelectItem& item : select.items) {
    const Type& type = item.value->type;
    columns.push_back({item_name(item), type.kind == TypeKind::null ? int_type : type});
  }
  return columns;
}

void add_union_types(std::vector<ResultColumn>& columns, const Select& core) {
  if (core.items.size() != columns.size()) {
    throw_syntax(
        "All queries combined using a UNION operator must have an equal number of expressions in "
        "their target lists.",
        core.items[0].value->position);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Expr& value = *core.items[i].value;
    columns[i].type = common_type(columns[i].type, value.type, value.position);
  }
}

}  // namespace

std::vector<ResultColumn> Binder::bind(Select& select) {
  return bind_query(select, nullptr);
}

std::vector<ResultColumn> Binder::bind_query(Select& select, Scope* outer) {
  const bool is_union = select.union_with != nullptr;
  std::vector<ResultColumn> columns = bind_core(select, outer, is_union);
  if (!is_union) return columns;
  for (Select* core = select.union_with.get(); core != nullptr; core = core->union_with.get()) {
    bind_core(*core, outer, true);
    add_union_types(columns, *core);
  }
  for (Select* core = &select; core != nullptr; core = core->union_with.get()) {
    for (std::size_t i = 0; i < columns.size(); ++i) unify(core->items[i].value, columns[i].type);
  }
  for (Select* core = &select; core != nullptr; core = core->union_with.get()) {
    add_union_types(columns, *core);  // the number of a str may have more decimals than was known
  }
  bind_order_by(select, nullptr);
  return columns;
}

std::vector<ResultColumn> Binder::bind_core(Select& select, Scope* outer, bool in_union) {
  Scope scope{&select.from, outer};
  bind_from(select.from, scope);
  if (select.where) bind_condition(select.where, scope);
  bind_group_by(select, scope);
  expand_stars(select);
  if (select.items.size() > most_columns) throw_syntax("Too many columns in the select list.", 0);

  scope.aggregates = Aggregates::allowed;
  for (SelectItem& item : select.items) bind_value(item.value, scope);
  if (select.having) bind_condition(select.having, scope);
  if (!in_union) bind_order_by(select, &scope);
  select.is_grouped = scope.has_aggregate || select.having || !select.group_by.empty();
  if (select.is_grouped) check_grouping(select);
  return result_columns(select);
}

// The scope is null for the order by of a union, which knows the names of its columns alone.
void Binder::bind_order_by(Select& select, Scope* scope) {
  for (OrderItem& order : select.order_by) {
    if (bind_order_by_name(select, order)) continue;
    if (scope == nullptr) {
      throw_syntax(
          "ORDER BY items must appear in the select list if the statement contains a UNION.",
          order.value->position);
    }
    bind_value(order.value, *scope);
    const auto item = std::ranges::find_if(select.items, [&](const SelectItem& candidate) {
      return same_meaning(*candidate.value, *order.value);
    });
    if (item != select.items.end()) {
      pin_literals(order.value);
      pin_literals(item->value);
      order.item = static_cast<std::size_t>(item - select.items.begin());
    } else if (select.distinct) {
      throw_syntax("ORDER BY items must appear in the select list if SELECT DISTINCT is specified.",
                   order.value->position);
    }
  }
}

// A number is the position of a column; a name is that of a result column before any other.
bool Binder::bind_order_by_name(const Select& select, OrderItem& order) const {
  const Expr& value = *order.value;
  if (value.kind == ExprKind::literal) {
    const Literal& literal = value.literal.value;
    const unsigned long long ordinal =
        literal.kind == LiteralKind::integer && literal.text[0] != '-' ? std::stoull(literal.text)
                                                                       : 0;
    if (ordinal < 1 || ordinal > select.items.size()) {
      throw_syntax("The ORDER BY position number " + literal.text +
                       " is out of range of the number of items in the select list.",
                   value.position);
    }
    order.item = ordinal - 1;
    return true;
  }
  if (value.kind != ExprKind::column || !value.qualifier.empty()) return false;
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    const SelectItem& item = select.items[i];
    if (!same_name(item_name(item), value.name)) continue;
    if (order.item && !same_meaning(*select.items[*order.item].value, *item.value)) {
      throw CompileError(CompileError::Kind::unknown_name,
                         "Ambiguous column name '" + value.name + "'.", value.position);
    }
    if (!order.item) order.item = i;
  }
  return order.item.has_value();
}

}  // namespace tela::tsql
