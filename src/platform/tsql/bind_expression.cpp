// The types of expressions, and which of them are conditions.
#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/conversions.h"
#include "platform/tsql/lexer.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

constexpr int most_decimal_digits = 38;
constexpr int quotient_scale = 6;  // the least number of decimals of a quotient

[[noreturn]] void throw_value(const std::string& message, std::size_t position) {
  throw CompileError(CompileError::Kind::value, message, position);
}

bool is_logical(Operator op) {
  return op == Operator::logical_and || op == Operator::logical_or || op == Operator::logical_not;
}

bool is_comparison(Operator op) {
  return op >= Operator::equal && op <= Operator::greater_equal;
}

std::string_view operation_name(Operator op) {
  switch (op) {
    case Operator::plus:
      return "add";
    case Operator::minus:
      return "subtract";
    case Operator::times:
      return "multiply";
    case Operator::divide:
      return "divide";
    default:
      return "modulo";
  }
}

Type arithmetic_type(Operator op, const Type& left, const Type& right) {
  const Type common = common_type(left, right, 0);
  if (common.kind == TypeKind::null) return int_type;
  if (common.kind != TypeKind::decimal) return common;
  const int scale = op == Operator::divide  ? std::max(common.scale, quotient_scale)
                    : op == Operator::times ? left.scale + right.scale
                                            : std::max(left.scale, right.scale);
  return {TypeKind::decimal, 0, most_decimal_digits, std::min(scale, most_decimal_digits)};
}

// Brings all expressions to the one type that they can meet in.
void meet(const std::vector<ExprPtr*>& parties) {
  Type type;
  for (const ExprPtr* party : parties) type = common_type(type, (*party)->type, (*party)->position);
  for (ExprPtr* party : parties) unify(*party, type);
}

}  // namespace

bool is_condition(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::is_null:
    case ExprKind::in_list:
    case ExprKind::in_select:
    case ExprKind::between:
    case ExprKind::like:
    case ExprKind::exists:
      return true;
    case ExprKind::unary:
    case ExprKind::binary:
      return is_logical(expr.op) || is_comparison(expr.op);
    default:
      return false;
  }
}

void Binder::bind_value(ExprPtr& expr, Scope& scope) {
  if (is_condition(*expr)) {
    throw CompileError(CompileError::Kind::syntax,
                       "A condition stands where a value is expected (position " +
                           std::to_string(expr->position + 1) + ").",
                       expr->position);
  }
  bind_any(expr, scope);
}

void Binder::bind_condition(ExprPtr& expr, Scope& scope) {
  if (!is_condition(*expr)) {
    throw CompileError(CompileError::Kind::syntax,
                       "An expression of non-boolean type specified in a context where a condition "
                       "is expected (position " +
                           std::to_string(expr->position + 1) + ").",
                       expr->position);
  }
  bind_any(expr, scope);
}

void Binder::bind_args(Expr& expr, Scope& scope) {
  for_each_child(expr, [&](ExprPtr& arg) { bind_value(arg, scope); });
}

void Binder::bind_any(ExprPtr& expr, Scope& scope) {
  switch (expr->kind) {
    case ExprKind::literal:
      if (expr->type.kind == TypeKind::null) expr->type = literal_type(expr->literal.value.kind);
      return;
    case ExprKind::null_value:
    case ExprKind::conversion:
      return;
    case ExprKind::column:
      return bind_column(*expr, scope);
    case ExprKind::star:
      throw CompileError(CompileError::Kind::syntax, "Incorrect syntax near '*'.", expr->position);
    case ExprKind::variable:
      throw CompileError(CompileError::Kind::unknown_name,
                         "Must declare the scalar variable \"" + expr->name + "\".",
                         expr->position);
    case ExprKind::unary:
      return bind_unary(*expr, scope);
    case ExprKind::binary:
      return bind_binary(*expr, scope);
    case ExprKind::is_null:
      return bind_args(*expr, scope);
    case ExprKind::in_list:
    case ExprKind::between:
      return bind_comparison(*expr, scope);
    case ExprKind::like:
      bind_args(*expr, scope);
      return for_each_child(*expr, [](ExprPtr& arg) { unify(arg, text_type); });
    case ExprKind::in_select:
      return bind_in_select(*expr, scope);
    case ExprKind::exists:
    case ExprKind::subquery:
      return bind_subquery(*expr, scope);
    case ExprKind::simple_case:
    case ExprKind::searched_case:
      return bind_case(*expr, scope);
    case ExprKind::call:
      return bind_call(*expr, scope);
    case ExprKind::cast:
      return bind_cast(*expr, scope);
  }
}

void Binder::bind_unary(Expr& expr, Scope& scope) {
  if (expr.op == Operator::logical_not) return bind_condition(expr.args[0], scope);
  bind_args(expr, scope);
  expr.type = expr.args[0]->type;
  if (expr.type.kind == TypeKind::null) expr.type = int_type;
  if (!is_numeric(expr.type)) {
    throw_value("Operand data type " + type_name(expr.type) + " is invalid for " +
                    (expr.op == Operator::minus ? "minus" : "plus") + " operator.",
                expr.position);
  }
}

void Binder::bind_binary(Expr& expr, Scope& scope) {
  if (is_logical(expr.op)) {
    bind_condition(expr.args[0], scope);
    return bind_condition(expr.args[1], scope);
  }
  if (is_comparison(expr.op)) return bind_comparison(expr, scope);
  bind_args(expr, scope);
  bind_arithmetic(expr);
}

void Binder::bind_arithmetic(Expr& expr) {
  const Type left = expr.args[0]->type;
  const Type right = expr.args[1]->type;
  const bool both_text =
      (is_text(left) || is_text(right)) && !is_numeric(left) && !is_numeric(right);
  if (is_calendar(left) || is_calendar(right) || (both_text && expr.op != Operator::plus)) {
    throw_value("The data types " + type_name(left) + " and " + type_name(right) +
                    " are incompatible in the " + std::string(operation_name(expr.op)) +
                    " operator.",
                expr.position);
  }
  if (both_text) {
    const bool is_bounded = left.length != 0 && right.length != 0;
    expr.type = text_type;
    expr.type.length = is_bounded ? left.length + right.length : 0;
    return;
  }
  meet({&expr.args[0], &expr.args[1]});
  expr.type = arithmetic_type(expr.op, expr.args[0]->type, expr.args[1]->type);
}

void Binder::bind_comparison(Expr& expr, Scope& scope) {
  bind_args(expr, scope);
  std::vector<ExprPtr*> parties;
  for_each_child(expr, [&](ExprPtr& arg) { parties.push_back(&arg); });
  meet(parties);
}

void Binder::bind_in_select(Expr& expr, Scope& scope) {
  bind_args(expr, scope);
  bind_subquery(expr, scope);
  const Type type = common_type(expr.args[0]->type, expr.type, expr.position);
  unify(expr.args[0], type);
  for (Select* core = expr.select.get(); core != nullptr; core = core->union_with.get()) {
    unify(core->items[0].value, type);
  }
}

void Binder::bind_subquery(Expr& expr, Scope& scope) {
  if (scope.aggregates == Aggregates::inside) {
    throw CompileError(CompileError::Kind::syntax,
                       "Cannot perform an aggregate function on an expression containing an "
                       "aggregate or a subquery.",
                       expr.position);
  }
  const std::vector<ResultColumn> columns = bind_query(*expr.select, &scope);
  if (expr.kind == ExprKind::exists) return;
  if (columns.size() != 1) {
    throw CompileError(
        CompileError::Kind::syntax,
        "Only one expression can be specified in the select list when the subquery is "
        "not introduced with EXISTS.",
        expr.position);
  }
  expr.type = columns[0].type;
}

// Args of a case: [base,] (when, then)…, [else].
void Binder::bind_case(Expr& expr, Scope& scope) {
  const bool is_simple = expr.kind == ExprKind::simple_case;
  const std::size_t first_when = is_simple ? 1 : 0;
  const std::size_t behind_pairs = expr.args.size() - (expr.has_else ? 1 : 0);
  std::vector<ExprPtr*> compared;
  std::vector<ExprPtr*> results;
  if (is_simple) {
    bind_value(expr.args[0], scope);
    compared.push_back(&expr.args[0]);
  }
  for (std::size_t i = first_when; i < behind_pairs; i += 2) {
    if (is_simple) {
      bind_value(expr.args[i], scope);
      compared.push_back(&expr.args[i]);
    } else {
      bind_condition(expr.args[i], scope);
    }
    bind_value(expr.args[i + 1], scope);
    results.push_back(&expr.args[i + 1]);
  }
  if (expr.has_else) {
    bind_value(expr.args.back(), scope);
    results.push_back(&expr.args.back());
  }
  meet(compared);
  meet(results);
  for (const ExprPtr* result : results) {
    expr.type = common_type(expr.type, (*result)->type, (*result)->position);
  }
}

void Binder::bind_cast(Expr& expr, Scope& scope) {
  if (expr.args.size() > 1) {
    const Literal& style = expr.args[1]->literal.value;
    expr.style = static_cast<int>(std::min<std::size_t>(std::stoull(style.text), 1000));
    expr.args.pop_back();
  }
  bind_args(expr, scope);
  expr.type = parse_type_name(expr.name);
  // A cast without a length cuts at 30 characters.
  if (is_text(expr.type) && expr.name.find('(') == std::string::npos) {
    expr.type.length = std::max(expr.type.length * 30, 0);
  }
  const Type source = expr.args[0]->type;
  const bool is_clash = is_calendar(source) ? source.kind != expr.type.kind && !is_text(expr.type)
                                            : is_calendar(expr.type) && is_numeric(source);
  if (is_clash) {
    throw_value("Explicit conversion from data type " + type_name(source) + " to " +
                    type_name(expr.type) + " is not allowed.",
                expr.position);
  }
}

}  // namespace tela::tsql
