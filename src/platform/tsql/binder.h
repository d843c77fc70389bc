// Gives every name of a tree its table and column, and every expression its type, in place.
//
// The work is spread over bind_names.cpp (tables and columns), bind_expression.cpp, bind_call.cpp,
// bind_select.cpp, bind_grouping.cpp (what a grouped select may say) and bind_statement.cpp.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/tsql/ast.h"
#include "platform/tsql/compiler.h"
#include "platform/tsql/functions.h"

namespace tela::tsql {

class Binder {
 public:
  explicit Binder(const Schema& schema) : schema_(schema) {}

  /// Binds a select that stands by itself; the result columns in order. Throws CompileError, as
  /// all.
  std::vector<ResultColumn> bind(Select& select);
  void bind(Insert& insert);
  void bind(Update& update);
  void bind(Delete& deletion);
  void bind(const CreateTable& create) const;
  void bind(CreateIndex& create) const;
  void bind(DropTable& drop) const;
  void bind(const DropProcedure& drop) const;

  /// Literals whose text decided about the meaning.
  const std::vector<std::size_t>& pinned() const { return pinned_; }

  /// Whether it reads a table that is not temporary.
  bool reads_catalogue() const { return reads_catalogue_; }

 private:
  enum class Aggregates { forbidden, allowed, inside };

  /// The tables that names can mean at one place of the statement; `outer` are those of the select
  /// around it.
  struct Scope {
    std::vector<TableRef>* tables = nullptr;
    Scope* outer = nullptr;
    std::size_t visible = 0;  ///< so many tables from the front
    Aggregates aggregates = Aggregates::forbidden;
    bool has_aggregate = false;
  };

  // Names.
  const TableInfo& table_info(std::string_view name, std::size_t position) const;
  void bind_from(std::vector<TableRef>& tables, Scope& scope);
  void bind_derived(TableRef& table);
  void bind_column(Expr& column, Scope& scope) const;
  bool find_column(Expr& column, const Scope& scope) const;
  static void set_column(Expr& column, const TableRef& table, const ColumnInfo& info);
  void expand_stars(Select& select) const;

  // Expressions.
  void bind_value(ExprPtr& expr, Scope& scope);
  void bind_condition(ExprPtr& expr, Scope& scope);
  void bind_any(ExprPtr& expr, Scope& scope);
  void bind_args(Expr& expr, Scope& scope);
  void bind_unary(Expr& expr, Scope& scope);
  void bind_binary(Expr& expr, Scope& scope);
  void bind_arithmetic(Expr& expr);
  void bind_comparison(Expr& expr, Scope& scope);
  void bind_in_select(Expr& expr, Scope& scope);
  void bind_subquery(Expr& expr, Scope& scope);
  void bind_case(Expr& expr, Scope& scope);
  void bind_cast(Expr& expr, Scope& scope);

  // Calls.
  void bind_call(Expr& call, Scope& scope);
  void bind_arg(ExprPtr& arg, ArgRule rule, Scope& scope);
  void bind_choice(Expr& call);
  void bind_aggregate(Expr& call, Scope& scope);
  static void check_own_columns(Expr& call, const Scope& scope);

  // Selects.
  std::vector<ResultColumn> bind_query(Select& select, Scope* outer);
  std::vector<ResultColumn> bind_core(Select& select, Scope* outer, bool in_union);
  void bind_group_by(Select& select, Scope& scope);
  void bind_order_by(Select& select, Scope* scope);
  bool bind_order_by_name(const Select& select, OrderItem& item) const;
  void check_grouping(Select& select);
  void check_grouped(ExprPtr& expr, Select& select, bool is_nested, std::string_view clause);
  void pin_literals(ExprPtr& expr);

  // Statements.
  void bind_target_columns(Insert& insert) const;
  void bind_rows(Insert& insert);
  void bind_source(Insert& insert, std::vector<ResultColumn> columns);
  int bind_target(std::vector<TableRef>& from, const std::string& table, std::size_t position,
                  Scope& scope);

  const Schema& schema_;
  int sources_ = 0;  ///< table references numbered so far
  std::vector<std::unique_ptr<TableInfo>> derived_;
  std::vector<std::size_t> pinned_;
  bool reads_catalogue_ = false;
};

/// Whether the expression is true or false, and no value.
bool is_condition(const Expr& expr);

/// The select that `execute` runs: the procedure's, its parameters replaced by the arguments.
/// Throws CompileError.
SelectPtr expand_procedure(const Execute& execute, const Schema& schema);

}  // namespace tela::tsql
