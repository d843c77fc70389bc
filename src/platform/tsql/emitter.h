// Writes a bound tree as SQLite SQL with the server's meaning.
//
// Every table reference gets an alias of its own and every column is written with it, so that no
// name is looked up twice under different rules. Texts are compared under the collation TELA;
// functions named tela_… give what the engine's own would do otherwise.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/tsql/ast.h"

namespace tela::tsql {

class Emitter {
 public:
  void emit(const Select& select);
  void emit(const Insert& insert);
  void emit(const Update& update);
  void emit(const Delete& deletion);
  void emit(const CreateTable& create);
  void emit(const CreateIndex& create);
  void emit(const DropTable& drop);

  std::string& sql() { return sql_; }
  std::vector<Parameter>& parameters() { return parameters_; }
  std::vector<DayRange>& group_days() { return group_days_; }

 private:
  enum class ItemNames { none, columns };

  // Selects.
  void emit_query(const Select& select, ItemNames names);
  void emit_core(const Select& select, ItemNames names, bool is_compared);
  void emit_from(const std::vector<TableRef>& tables);
  void emit_table(const TableRef& table);
  void emit_groups(const TableRef& table);
  void emit_group_days(const TableRef& table, const std::vector<Parameter>& parameters);
  void emit_values(std::span<const Parameter> parameters);
  void emit_order_by(const Select& select);
  void emit_limit(const Select& select);

  // Expressions.
  void emit(const Expr& expr);
  void emit_plain(const Expr& expr);
  void emit_literal(const Expr& expr);
  void emit_parameter(Parameter parameter, std::size_t position);
  void add_parameter(Parameter parameter, std::size_t position);
  void emit_foreign_literal(const Expr& expr);
  void emit_unary(const Expr& expr);
  void emit_binary(const Expr& expr);
  void emit_operands(const Expr& expr);
  void emit_division(const Expr& expr);
  void emit_membership(const Expr& expr);
  void emit_between(const Expr& expr);
  void emit_like(const Expr& expr);
  void emit_scalar(const Select& select);
  void emit_case(const Expr& expr);
  void emit_call(const Expr& expr);
  void emit_aggregate(const Expr& expr);
  void emit_aggregate_of(std::string_view function, const Expr& expr, std::string_view collation);
  void emit_conversion(const Expr& expr);
  void emit_number(const Expr& value);
  void emit_text_conversion(const Expr& expr);
  void emit_as_text(const Expr& value, int style);
  void emit_list(const std::vector<ExprPtr>& exprs, std::size_t first = 0);
  void emit_compared(const Expr& expr);

  // Statements.
  void emit_column_list(const std::vector<std::string>& columns);
  void emit_joined_update(const Update& update);
  void emit_where(const ExprPtr& condition);

  void write(std::string_view text) { sql_ += text; }
  void write_number(std::size_t number) { sql_ += std::to_string(number); }
  void write_numbers(std::initializer_list<int> numbers);
  void write_name(std::string_view name);
  void write_table(std::string_view name);
  void write_alias(int source);

  std::string sql_;
  std::vector<Parameter> parameters_;
  std::unordered_multimap<std::size_t, std::size_t> by_literal_;  ///< where in parameters_
  std::vector<DayRange> group_days_;
};

}  // namespace tela::tsql
