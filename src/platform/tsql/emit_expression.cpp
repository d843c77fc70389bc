// Expressions in SQLite's words. Whatever is made of parts is written in brackets.
#include <algorithm>

#include "platform/tsql/conversions.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/engine_names.h"
#include "platform/tsql/functions.h"
#include "platform/tsql/types.h"
#include "platform/tsql/values.h"

namespace tela::tsql {
namespace {

constexpr std::size_t most_parameters = 32766;

std::string_view operator_text(Operator op) {
  switch (op) {
    case Operator::plus:
      return " + ";
    case Operator::minus:
      return " - ";
    case Operator::times:
      return " * ";
    case Operator::equal:
      return " = ";
    case Operator::not_equal:
      return " <> ";
    case Operator::less:
      return " < ";
    case Operator::less_equal:
      return " <= ";
    case Operator::greater:
      return " > ";
    case Operator::greater_equal:
      return " >= ";
    case Operator::logical_and:
      return " AND ";
    case Operator::logical_or:
      return " OR ";
    default:
      return "";
  }
}

bool concatenates(const Expr& expr) {
  return expr.op == Operator::plus && is_text(expr.type);
}

bool is_sum(const Expr& expr) {
  return (expr.op == Operator::plus || expr.op == Operator::minus) && !is_text(expr.type);
}

// Whether `left` is the front of a chain of operations (a or b or c) that `expr` goes on with: it
// needs no brackets, of which the engine reads less than a hundred in one another.
bool continues(const Expr& left, const Expr& expr) {
  if (left.kind != ExprKind::binary || left.is_group_key) return false;
  switch (expr.op) {
    case Operator::plus:
    case Operator::minus:
      return is_sum(expr) ? is_sum(left) : concatenates(left);
    case Operator::times:
    case Operator::logical_and:
    case Operator::logical_or:
      return left.op == expr.op;
    default:
      return false;
  }
}

// A select of one row at most, whatever the tables hold.
bool gives_one_row(const Select& select) {
  if (select.union_with) return false;
  const bool is_one_group = select.is_grouped && select.group_by.empty();
  return is_one_group || select.from.empty() ||
         (select.top && std::stoll(select.top->value.text) <= 1);
}

struct InlineValue {
  std::string operator()(std::monostate) const { return "NULL"; }
  std::string operator()(std::int64_t value) const {
    std::string text("(");
    text += std::to_string(value);
    return text += ')';
  }
  std::string operator()(double value) const {
    return "CAST('" + number_text(value) + "' AS REAL)";
  }
  std::string operator()(const std::string& value) const { return quoted_text(value); }
};

}  // namespace

void Emitter::emit(const Expr& expr) {
  const bool shows_group = expr.is_group_key && is_text(expr.type);
  if (!shows_group) return emit_plain(expr);
  // A group of equal texts shows the one that is first by its bytes.
  write("min(");
  emit_plain(expr);
  write(" COLLATE TELA_SPELLING)");
}

void Emitter::emit_plain(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::literal:
      return emit_literal(expr);
    case ExprKind::null_value:
      return write("NULL");
    case ExprKind::column:
      write_alias(expr.source);
      write(".");
      return write_name(expr.column);
    case ExprKind::star:
      return write("*");
    case ExprKind::unary:
      return emit_unary(expr);
    case ExprKind::binary:
      return emit_binary(expr);
    case ExprKind::is_null:
      write("(");
      emit(*expr.args[0]);
      return write(expr.negated ? " IS NOT NULL)" : " IS NULL)");
    case ExprKind::in_list:
    case ExprKind::in_select:
      return emit_membership(expr);
    case ExprKind::between:
      return emit_between(expr);
    case ExprKind::like:
      return emit_like(expr);
    case ExprKind::exists:
      write("EXISTS (");
      emit(*expr.select);
      return write(")");
    case ExprKind::subquery:
      return emit_scalar(*expr.select);
    case ExprKind::simple_case:
    case ExprKind::searched_case:
      return emit_case(expr);
    case ExprKind::call:
      return emit_call(expr);
    case ExprKind::cast:
    case ExprKind::conversion:
      return emit_conversion(expr);
    case ExprKind::variable:
      break;
  }
  throw std::logic_error("an expression that cannot be written");
}

// As a party of a comparison: texts compare by the server's rules.
void Emitter::emit_compared(const Expr& expr) {
  // A key of a group by is written as it stands.
  emit_plain(expr);
  if (is_text(expr.type)) write(" COLLATE TELA");
}

void Emitter::emit_literal(const Expr& expr) {
  if (expr.literal.is_foreign) return emit_foreign_literal(expr);
  emit_parameter({expr.literal.index, expr.type, expr.target.table, expr.target.column},
                 expr.position);
}

void Emitter::emit_parameter(Parameter parameter, std::size_t position) {
  const auto [begin, end] = by_literal_.equal_range(parameter.literal);
  const auto known = std::find_if(
      begin, end, [&](const auto& entry) { return parameters_[entry.second] == parameter; });
  const std::size_t number = known == end ? parameters_.size() : known->second;
  if (known == end) add_parameter(std::move(parameter), position);
  write("?");
  write_number(number + 1);
}

void Emitter::add_parameter(Parameter parameter, std::size_t position) {
  if (parameters_.size() == most_parameters) {
    throw CompileError(CompileError::Kind::syntax, "The statement has too many literals.",
                       position);
  }
  by_literal_.emplace(parameter.literal, parameters_.size());
  parameters_.push_back(std::move(parameter));
}

void Emitter::emit_foreign_literal(const Expr& expr) {
  const StoredValue value =
      convert_literal(expr.literal.value, {0, expr.type, expr.target.table, expr.target.column});
  write(std::visit(InlineValue{}, value));
}

void Emitter::emit_unary(const Expr& expr) {
  write(expr.op == Operator::logical_not ? "(NOT " : expr.op == Operator::minus ? "(- " : "(+ ");
  emit(*expr.args[0]);
  write(")");
}

void Emitter::emit_binary(const Expr& expr) {
  if (expr.op == Operator::divide || expr.op == Operator::modulo) return emit_division(expr);
  write("(");
  emit_operands(expr);
  write(")");
}

void Emitter::emit_operands(const Expr& expr) {
  const Expr& left = *expr.args[0];
  const Expr& right = *expr.args[1];
  const bool compares_texts = expr.type.kind == TypeKind::null && is_text(right.type);
  // On both sides: the engine may turn them round, or put the left one into another condition.
  const std::string_view collation = compares_texts ? " COLLATE TELA" : "";
  continues(left, expr) ? emit_operands(left) : emit(left);
  write(collation);
  write(concatenates(expr) ? " || " : operator_text(expr.op));
  emit(right);
  write(collation);
}

void Emitter::emit_division(const Expr& expr) {
  const bool is_integer = expr.type.kind == TypeKind::integer;
  write(expr.op == Operator::modulo ? "tela_mod(" : is_integer ? "tela_int_div(" : "tela_div(");
  emit_list(expr.args);
  write(")");
}

void Emitter::emit_membership(const Expr& expr) {
  write("(");
  emit(*expr.args[0]);
  if (is_text(expr.args[0]->type)) write(" COLLATE TELA");
  write(expr.negated ? " NOT IN (" : " IN (");
  expr.select ? emit(*expr.select) : emit_list(expr.args, 1);
  write("))");
}

void Emitter::emit_between(const Expr& expr) {
  write("(");
  emit(*expr.args[0]);
  if (is_text(expr.args[0]->type)) write(" COLLATE TELA");
  write(expr.negated ? " NOT BETWEEN " : " BETWEEN ");
  emit(*expr.args[1]);
  write(" AND ");
  emit(*expr.args[2]);
  write(")");
}

void Emitter::emit_like(const Expr& expr) {
  write(expr.negated ? "(NOT tela_like(" : "(tela_like(");
  emit_list(expr.args);
  write("))");
}

// More than one row is an error that the engine does not know.
void Emitter::emit_scalar(const Select& select) {
  if (gives_one_row(select)) {
    write("(");
    emit(select);
    return write(")");
  }
  write("(SELECT tela_only(only) FROM (SELECT NULL AS only WHERE 0 UNION ALL SELECT * FROM (");
  emit(select);
  write(")))");
}

void Emitter::emit_case(const Expr& expr) {
  const std::size_t behind_pairs = expr.args.size() - (expr.has_else ? 1 : 0);
  std::size_t i = 0;
  write("(CASE");
  if (expr.kind == ExprKind::simple_case) {
    write(" ");
    emit(*expr.args[i]);
    if (is_text(expr.args[i]->type)) write(" COLLATE TELA");
    ++i;
  }
  for (; i < behind_pairs; i += 2) {
    write(" WHEN ");
    emit(*expr.args[i]);
    write(" THEN ");
    emit(*expr.args[i + 1]);
  }
  if (expr.has_else) {
    write(" ELSE ");
    emit(*expr.args.back());
  }
  write(" END)");
}

void Emitter::emit_call(const Expr& expr) {
  const Function& function = *expr.function;
  if (function.kind == FunctionKind::aggregate) return emit_aggregate(expr);
  if (function.kind == FunctionKind::date_field) {
    write("(");
    emit(*expr.args[0]);
    write(" ");
    write(function.engine_name);
    return write(")");
  }
  write(function.engine_name);
  write("(");
  const bool compares_texts = function.name == "nullif" && is_text(expr.args[0]->type);
  emit(*expr.args[0]);
  if (compares_texts) write(" COLLATE TELA");
  for (std::size_t i = 1; i < expr.args.size(); ++i) {
    write(", ");
    emit(*expr.args[i]);
  }
  write(")");
}

void Emitter::emit_aggregate(const Expr& expr) {
  const std::string_view name = expr.function->engine_name;
  const bool of_texts = is_text(expr.args[0]->type);
  if (name == "tela_avg" && expr.type.kind == TypeKind::integer) {
    // A mean of whole numbers is whole; over nothing it is null / 0.
    write("(");
    emit_aggregate_of("tela_sum", expr, "");
    write(" / ");
    emit_aggregate_of("count", expr, "");
    return write(")");
  }
  emit_aggregate_of(name, expr,
                    !of_texts         ? ""
                    : name == "count" ? " COLLATE TELA"
                                      : " COLLATE TELA_SPELLING");
}

void Emitter::emit_aggregate_of(std::string_view function, const Expr& expr,
                                std::string_view collation) {
  write(function);
  write(expr.distinct ? "(DISTINCT " : "(");
  emit(*expr.args[0]);
  write(collation);
  write(")");
}

void Emitter::emit_conversion(const Expr& expr) {
  const Expr& value = *expr.args[0];
  const Type& type = expr.type;
  switch (type.kind) {
    case TypeKind::text:
      return emit_text_conversion(expr);
    case TypeKind::integer:
      write("tela_to_int(");
      emit_number(value);
      return write_numbers({type.precision});
    case TypeKind::decimal:
      write("tela_to_decimal(");
      emit_number(value);
      return write_numbers({type.precision, type.scale});
    case TypeKind::real:
      write("tela_to_real(");
      emit_number(value);
      return write(")");
    case TypeKind::date:
      write(value.type.kind == TypeKind::date ? "(" : "tela_to_date(");
      break;
    case TypeKind::time:
      write(value.type.kind == TypeKind::time ? "(" : "tela_to_time(");
      break;
    case TypeKind::null:
      write("(");
      break;
  }
  emit(value);
  write(")");
}

// What is turned into a number.
void Emitter::emit_number(const Expr& value) {
  if (!is_str_call(value) || value.is_group_key) return emit(value);
  write("tela_round(");
  emit(*value.args[0]);
  write(", ");
  value.args.size() > 2 ? emit(*value.args[2]) : write("0");
  write(")");
}

// A column refuses what is too long; a cast cuts it.
void Emitter::emit_text_conversion(const Expr& expr) {
  if (expr.type.length == 0) return emit_as_text(*expr.args[0], expr.style);
  write(expr.fits_column ? "tela_fit_text(" : "substr(");
  emit_as_text(*expr.args[0], expr.style);
  if (!expr.fits_column) return write_numbers({1, expr.type.length});
  write(", ");
  write(std::to_string(expr.type.length));
  write(", ");
  write(quoted_text(expr.target.table));
  write(", ");
  write(quoted_text(expr.target.column));
  write(")");
}

// The last arguments of a call, and its end.
void Emitter::write_numbers(std::initializer_list<int> numbers) {
  for (const int number : numbers) {
    write(", ");
    write(std::to_string(number));
  }
  write(")");
}

void Emitter::emit_as_text(const Expr& value, int style) {
  std::string_view close = ")";
  if (value.type.kind == TypeKind::date) {
    write("tela_date_text(");
    emit(value);
    return write_numbers({style});
  }
  if (value.type.kind == TypeKind::time) {
    write("tela_time_text(");
  } else if (is_whole(value.type)) {
    write("CAST(");
    close = " AS TEXT)";
  } else if (is_numeric(value.type)) {
    write("tela_number_text(");
  } else {
    close = "";
  }
  emit(value);
  write(close);
}

void Emitter::emit_list(const std::vector<ExprPtr>& exprs, std::size_t first) {
  for (std::size_t i = first; i < exprs.size(); ++i) {
    if (i > first) write(", ");
    emit(*exprs[i]);
  }
}

}  // namespace tela::tsql
