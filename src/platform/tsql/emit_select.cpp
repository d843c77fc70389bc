// Selects in SQLite's words.
#include <algorithm>

#include "platform/tsql/emitter.h"
#include "platform/tsql/engine_names.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

std::string_view join_words(JoinKind join) {
  switch (join) {
    case JoinKind::first:
      return "";
    case JoinKind::comma:
      return ", ";
    case JoinKind::inner:
    case JoinKind::cross:  // the engine's own "cross join" fixes the order of the loops
      return " JOIN ";
    case JoinKind::left:
      return " LEFT JOIN ";
    case JoinKind::right:
      return " RIGHT JOIN ";
    case JoinKind::full:
      return " FULL JOIN ";
  }
  return "";
}

// Whether the rows of a union are compared with each other.
bool compares_rows(const Select& select) {
  for (const Select* core = &select; core->union_with; core = core->union_with.get()) {
    if (!core->union_all) return true;
  }
  return false;
}

bool holds_aggregate(const ExprPtr& expr) {
  return is_aggregate(*expr) || std::ranges::any_of(expr->args, holds_aggregate);
}

// A select that is one group by its having alone; the engine looks for an aggregate among the
// columns.
bool is_group_without_sign(const Select& select) {
  return select.is_grouped && select.group_by.empty() &&
         std::ranges::none_of(select.items,
                              [](const SelectItem& item) { return holds_aggregate(item.value); });
}

std::size_t day_among(const std::vector<Parameter>& parameters, std::size_t literal) {
  const auto is_day = [&](const Parameter& parameter) {
    return parameter.literal == literal && parameter.target.kind == TypeKind::date;
  };
  return static_cast<std::size_t>(std::ranges::find_if(parameters, is_day) - parameters.begin());
}

/// The parameters that carry a pair of literals.
DayRange days_among(const std::vector<Parameter>& parameters, const DayRange& literals) {
  return {day_among(parameters, literals.first), day_among(parameters, literals.last)};
}

}  // namespace

void Emitter::emit(const Select& select) {
  emit_query(select, ItemNames::none);
}

void Emitter::emit_query(const Select& select, ItemNames names) {
  if (!select.union_with) {
    emit_core(select, names, select.distinct);
    emit_order_by(select);
    emit_limit(select);
    return;
  }
  const bool is_compared = compares_rows(select);
  for (const Select* core = &select; core != nullptr; core = core->union_with.get()) {
    if (core->top) write("SELECT * FROM (");
    emit_core(*core, names, is_compared || core->distinct);
    emit_limit(*core);
    if (core->top) write(")");
    if (core->union_with) write(core->union_all ? " UNION ALL " : " UNION ");
  }
  emit_order_by(select);
}

void Emitter::emit_core(const Select& select, ItemNames names, bool is_compared) {
  write(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  const bool lacks_aggregate = is_group_without_sign(select);
  if (lacks_aggregate) write("CASE WHEN count(*) >= 0 THEN ");
  for (const SelectItem& item : select.items) {
    if (&item != &select.items.front()) write(", ");
    is_compared ? emit_compared(*item.value) : emit(*item.value);
    if (lacks_aggregate && &item == &select.items.front()) write(" END");
    if (names == ItemNames::none) continue;
    write(" AS ");
    write_name(item.alias.empty() ? item.value->name : item.alias);
  }
  if (!select.from.empty()) {
    write(" FROM ");
    emit_from(select.from);
  }
  emit_where(select.where);
  if (!select.group_by.empty()) {
    write(" GROUP BY ");
    for (const ExprPtr& key : select.group_by) {
      if (&key != &select.group_by.front()) write(", ");
      emit_compared(*key);
    }
  }
  if (select.having) {
    write(" HAVING ");
    emit(*select.having);
  }
}

void Emitter::emit_from(const std::vector<TableRef>& tables) {
  for (const TableRef& table : tables) {
    write(join_words(table.join));
    emit_table(table);
    if (!table.on) continue;
    write(" ON ");
    emit(*table.on);
  }
}

void Emitter::emit_table(const TableRef& table) {
  if (!table.group_plan.empty()) {
    emit_groups(table);
  } else if (table.derived) {
    write("(");
    emit_query(*table.derived, ItemNames::columns);
    write(")");
  } else {
    write_table(table.info->name);
  }
  write(" AS ");
  write_alias(table.source);
}

// The source is a text of its own, with parameters of its own, which the groups hand on. Those that
// bound its days are named by their numbers, 0 for none.
void Emitter::emit_groups(const TableRef& table) {
  Emitter source;
  source.emit(*table.derived);
  write("tela_groups(" + quoted_text(source.sql_) + ", " + quoted_text(table.group_plan));
  emit_group_days(table, source.parameters_);
  write(", ");
  emit_values(source.parameters_);
  write(")");
  if (table.group_days) group_days_.push_back(days_among(parameters_, *table.group_days));
}

// All values as one: a table-valued function takes few arguments, any other function 127 at most,
// so that a long list is a list of lists.
void Emitter::emit_values(std::span<const Parameter> parameters) {
  constexpr std::size_t most_args = 100;
  const bool is_long = parameters.size() > most_args;
  const std::size_t step = is_long ? (parameters.size() + most_args - 1) / most_args : 1;
  write("tela_values(");
  for (std::size_t i = 0; i < parameters.size(); i += step) {
    if (i > 0) write(", ");
    if (is_long) {
      emit_values(parameters.subspan(i, std::min(step, parameters.size() - i)));
    } else {
      emit_parameter(parameters[i], 0);
    }
  }
  write(")");
}

void Emitter::emit_group_days(const TableRef& table, const std::vector<Parameter>& parameters) {
  if (!table.group_days) return write(", 0, 0");
  const DayRange days = days_among(parameters, *table.group_days);
  write(", ");
  write_number(days.first + 1);
  write(", ");
  write_number(days.last + 1);
}

void Emitter::emit_order_by(const Select& select) {
  for (const OrderItem& order : select.order_by) {
    write(&order == &select.order_by.front() ? " ORDER BY " : ", ");
    if (order.item) {
      write_number(*order.item + 1);
      if (is_text(select.items[*order.item].value->type)) write(" COLLATE TELA");
    } else {
      emit_compared(*order.value);
    }
    if (order.descending) write(" DESC");
  }
}

void Emitter::emit_limit(const Select& select) {
  if (!select.top) return;
  write(" LIMIT ");
  write(select.top->value.text);
}

}  // namespace tela::tsql
