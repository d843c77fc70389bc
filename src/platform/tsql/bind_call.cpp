// Calls of functions and aggregates.
#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/conversions.h"
#include "platform/tsql/functions.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

constexpr std::size_t most_args = 100;  // of coalesce; the engine takes 127
constexpr Type average_of_codes{TypeKind::decimal, 0, 38, 6};
constexpr int most_decimal_digits = 38;

void check_count(const Expr& call) {
  const Function& function = *call.function;
  const bool repeats = function.result == ResultRule::common;
  const std::size_t most = repeats ? most_args : function.args.size();
  if (call.args.size() >= function.least_args && call.args.size() <= most) return;
  const std::string count = function.least_args == most ? std::to_string(most)
                                                        : std::to_string(function.least_args) +
                                                              " to " + std::to_string(most);
  throw CompileError(
      CompileError::Kind::syntax,
      "The " + std::string(function.name) + " function requires " + count + " argument(s).",
      call.position);
}

// Makes `mm` the name of the part that it stands for.
void read_date_part(Expr& part) {
  const std::string_view name =
      part.kind == ExprKind::column && part.qualifier.empty() ? date_part_name(part.name) : "";
  if (name.empty()) {
    throw CompileError(CompileError::Kind::unknown_name,
                       "'" + part.name + "' is not a recognized date part.", part.position);
  }
  part.kind = ExprKind::literal;
  part.name.clear();
  part.literal = {{LiteralKind::text, std::string(name)}, 0, true};
  part.type = text_type;
}

Type aggregate_type(const Expr& call) {
  const std::string_view name = call.function->name;
  const Type& arg = call.args[0]->type;
  if (name == "count") return int_type;
  if (name == "min" || name == "max") return arg.kind == TypeKind::null ? int_type : arg;
  if (!is_numeric(arg) && arg.kind != TypeKind::null) {
    throw CompileError(CompileError::Kind::value,
                       "Operand data type " + type_name(arg) + " is invalid for " +
                           std::string(name) + " operator.",
                       call.position);
  }
  if (arg.kind == TypeKind::decimal) {
    return name == "avg" ? average_of_codes
                         : Type{TypeKind::decimal, 0, most_decimal_digits, arg.scale};
  }
  return arg.kind == TypeKind::real ? arg : bigint_type;
}

}  // namespace

void Binder::bind_call(Expr& call, Scope& scope) {
  call.function = find_function(call.name);
  if (call.function == nullptr) {
    throw CompileError(CompileError::Kind::unknown_name,
                       "'" + call.name + "' is not a recognized built-in function name.",
                       call.position);
  }
  const Function& function = *call.function;
  check_count(call);
  if (function.kind == FunctionKind::aggregate) return bind_aggregate(call, scope);
  if (call.distinct) {
    throw CompileError(CompileError::Kind::syntax, "Incorrect syntax near 'distinct'.",
                       call.position);
  }
  for (std::size_t i = 0; i < call.args.size(); ++i) {
    const ArgRule rule = function.args[std::min(i, function.args.size() - 1)];
    bind_arg(call.args[i], rule, scope);
  }
  if (function.kind == FunctionKind::choice) return bind_choice(call);
  switch (function.result) {
    case ResultRule::integer:
      call.type = int_type;
      return;
    case ResultRule::text:
      call.type = text_type;
      return;
    case ResultRule::date:
      call.type = date_type;
      return;
    default:
      call.type = call.args[0]->type;
  }
}

void Binder::bind_arg(ExprPtr& arg, ArgRule rule, Scope& scope) {
  if (rule == ArgRule::date_part) return read_date_part(*arg);
  bind_value(arg, scope);
  switch (rule) {
    case ArgRule::number:
      if (arg->type.kind == TypeKind::null) arg->type = real_type;
      return unify(arg, real_type);
    case ArgRule::whole:
      return assign(arg, int_type, {});
    case ArgRule::text:
      return unify(arg, text_type);
    case ArgRule::date:
      return unify(arg, date_type);
    default:
      return;
  }
}

// isnull and nullif have the type of their first argument, coalesce the common one.
void Binder::bind_choice(Expr& call) {
  Type type = call.args[0]->type;
  if (call.function->result == ResultRule::common || call.function->name == "nullif" ||
      type.kind == TypeKind::null) {
    for (const ExprPtr& arg : call.args) type = common_type(type, arg->type, arg->position);
  }
  for (ExprPtr& arg : call.args) {
    const bool narrows = is_numeric(type) && call.function->name == "isnull";
    narrows ? assign(arg, type, {}) : unify(arg, type);
  }
  call.type = type;
  call.type.length = 0;
}

void Binder::bind_aggregate(Expr& call, Scope& scope) {
  if (scope.aggregates == Aggregates::forbidden) {
    throw CompileError(
        CompileError::Kind::syntax,
        "An aggregate may appear in a select list, a having or an order by clause only.",
        call.position);
  }
  if (scope.aggregates == Aggregates::inside) {
    throw CompileError(CompileError::Kind::syntax,
                       "Cannot perform an aggregate function on an expression containing an "
                       "aggregate or a subquery.",
                       call.position);
  }
  scope.has_aggregate = true;
  const bool counts_rows = call.function->name == "count" && call.args[0]->kind == ExprKind::star;
  if (!counts_rows) {
    scope.aggregates = Aggregates::inside;
    bind_value(call.args[0], scope);
    scope.aggregates = Aggregates::allowed;
    check_own_columns(call, scope);
  }
  call.type = aggregate_type(call);
}

// An aggregate over columns of an outer select alone would belong to that select.
void Binder::check_own_columns(Expr& call, const Scope& scope) {
  bool has_own = false;
  bool has_outer = false;
  for_each_node(call.args[0], [&](ExprPtr& node) {
    if (node->kind != ExprKind::column) return;
    const bool is_own = std::ranges::any_of(
        *scope.tables, [&](const TableRef& table) { return table.source == node->source; });
    (is_own ? has_own : has_outer) = true;
  });
  if (has_outer && !has_own) {
    throw CompileError(CompileError::Kind::syntax,
                       "An aggregate of columns of an outer select is not supported.",
                       call.position);
  }
}

}  // namespace tela::tsql
