// The tree of a T-SQL statement. The parser makes it; the binder writes types and meaning into it
// in place; the rewrites and the emitter read it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/tsql/compiler.h"

namespace tela::tsql {

struct Expr;
struct Select;
using ExprPtr = std::unique_ptr<Expr>;
using SelectPtr = std::unique_ptr<Select>;

enum class ExprKind {
  literal,        ///< a literal of the statement
  null_value,     ///< NULL
  column,         ///< [qualifier.]name
  star,           ///< * or qualifier.*: of a select list, or in count(*)
  variable,       ///< @name
  unary,          ///< op args[0]; op is + - or not
  binary,         ///< args[0] op args[1]; arithmetic, comparison, and, or
  is_null,        ///< args[0] is [not] null
  in_list,        ///< args[0] [not] in (args[1] …)
  in_select,      ///< args[0] [not] in (select)
  between,        ///< args[0] [not] between args[1] and args[2]
  like,           ///< args[0] [not] like args[1]
  exists,         ///< exists (select)
  subquery,       ///< (select) as a value
  simple_case,    ///< case args[0] when … then … [else …] end: pairs, then the else part
  searched_case,  ///< case when … then … [else …] end: pairs, then the else part
  call,           ///< name([distinct] args…)
  cast,           ///< cast(args[0] as type) and convert(type, args[0][, style])
  conversion,     ///< made by the binder: args[0] turned into `type`
};

enum class Operator {
  none,
  plus,
  minus,
  times,
  divide,
  modulo,
  equal,
  not_equal,
  less,
  less_equal,
  greater,
  greater_equal,
  logical_and,
  logical_or,
  logical_not
};

/// A literal as a node holds it. One of a procedure's own text is no literal of the statement that
/// is compiled, so that it is written into the engine's SQL.
struct LiteralRef {
  Literal value;
  std::size_t index = 0;    ///< among the literals of the statement
  bool is_foreign = false;  ///< of a procedure's text
  bool operator==(const LiteralRef& other) const { return value == other.value; }
};

/// Where a column's conversion ends up, so that an error can name it.
struct ColumnTarget {
  std::string table;
  std::string column;
};

struct Expr {
  ExprKind kind = ExprKind::null_value;
  std::size_t position = 0;
  int depth = 1;  ///< levels of the tree from here down; the parser bounds it
  std::string qualifier;
  std::string name;  ///< of a column, variable or function; of a cast the type as written
  Operator op = Operator::none;
  bool negated = false;   ///< not in, not like, not between, is not null
  bool distinct = false;  ///< of an aggregate
  bool has_else = false;  ///< of a case
  LiteralRef literal;
  std::vector<ExprPtr> args;
  SelectPtr select;

  // What the binder finds.
  Type type;
  int source = -1;     ///< of a column: number of the table reference, unique in the statement
  std::string column;  ///< of a column: its name as created
  bool is_group_key = false;  ///< stands for an expression of its select's group by
  const struct Function* function = nullptr;
  ColumnTarget target;       ///< of a literal or conversion that goes into a column
  int style = 0;             ///< of a cast of a date to text
  bool fits_column = false;  ///< of a conversion: too long a text is an error and is not cut
};

enum class JoinKind { first, comma, inner, left, right, full, cross };

/// A table of a from clause, with the join that adds it to those before.
struct TableRef {
  JoinKind join = JoinKind::first;
  std::size_t position = 0;
  std::string table;  ///< empty for a derived table
  std::string alias;
  SelectPtr derived;
  ExprPtr on;

  int source = -1;  ///< set by the binder
  const TableInfo* info = nullptr;
  /// Set by a rewrite: the table holds the groups that the client makes of `derived`'s rows, one
  /// letter a column (group_plan.h). Empty for any other.
  std::string group_plan;
  /// Set by a rewrite: the literals of `derived` that bound its rows' days and mean nothing else.
  std::optional<DayRange> group_days;
};

struct SelectItem {
  ExprPtr value;
  std::string alias;
};

struct OrderItem {
  ExprPtr value;
  bool descending = false;
  std::optional<std::size_t> item;  ///< set by the binder: the select item that is meant
};

struct Select {
  bool distinct = false;
  std::optional<LiteralRef> top;
  std::vector<SelectItem> items;
  std::vector<TableRef> from;
  ExprPtr where;
  std::vector<ExprPtr> group_by;
  ExprPtr having;
  SelectPtr union_with;  ///< the next select of a union
  bool union_all = false;
  std::vector<OrderItem> order_by;  ///< of the whole union

  bool is_grouped = false;  ///< set by the binder: it groups or aggregates
};

struct Execute {
  std::size_t position = 0;
  std::string procedure;
  struct Argument {
    std::string parameter;  ///< empty if it goes by position
    ExprPtr value;
  };
  std::vector<Argument> arguments;
};

struct Insert {
  std::size_t position = 0;
  std::string table;
  std::vector<std::string> columns;
  std::vector<std::vector<ExprPtr>> rows;
  SelectPtr select;
  std::optional<Execute> execute;

  const TableInfo* info = nullptr;  ///< set by the binder, as is the whole list of columns
};

struct Assignment {
  std::size_t position = 0;
  std::string qualifier;
  std::string column;
  ExprPtr value;
};

struct Update {
  std::size_t position = 0;
  std::string table;  ///< a table, or an alias of `from`
  std::vector<Assignment> assignments;
  std::vector<TableRef> from;
  ExprPtr where;

  // Set by the binder: `from` then holds the target in any case.
  const TableInfo* info = nullptr;
  int source = -1;
};

struct Delete {
  std::size_t position = 0;
  std::string table;
  std::vector<TableRef> from;
  ExprPtr where;

  const TableInfo* info = nullptr;
  int source = -1;
};

struct ColumnDefinition {
  std::size_t position = 0;
  std::string name;
  std::string type;
  bool not_null = false;
  bool primary_key = false;
  bool unique = false;
};

struct CreateTable {
  std::string table;
  std::vector<ColumnDefinition> columns;
  std::vector<std::string> primary_key;
};

struct CreateIndex {
  std::size_t position = 0;
  bool unique = false;
  std::string name;
  std::string table;
  struct Column {
    std::string name;
    bool descending = false;
  };
  std::vector<Column> columns;
};

struct DropTable {
  std::size_t position = 0;
  std::string table;
};

struct CreateProcedure {
  std::string name;
  struct Parameter {
    std::size_t position = 0;
    std::string name;  ///< with its '@'
    std::string type;
  };
  std::vector<Parameter> parameters;
  SelectPtr body;
};

struct DropProcedure {
  std::size_t position = 0;
  std::string procedure;
};

using Statement = std::variant<SelectPtr, Insert, Update, Delete, Execute, CreateTable, CreateIndex,
                               DropTable, CreateProcedure, DropProcedure>;

/// Calls `visit` with every expression directly below a node, in the order of the text; a select
/// below it is entered through for_each_expression. These two are the one place that knows where
/// expressions sit.
void for_each_child(Expr& expr, const std::function<void(ExprPtr&)>& visit);
void for_each_expression(Select& select, const std::function<void(ExprPtr&)>& visit);

/// Calls `visit` with every expression of a tree, those of the selects below it included, a node
/// before what hangs from it. `visit` may replace the node.
void for_each_node(ExprPtr& expr, const std::function<void(ExprPtr&)>& visit);

/// Calls `visit` with the nodes of a select's own expression: those of a select below it are none
/// of its. A node comes before what hangs from it.
void for_each_own_node(ExprPtr& expr, const std::function<void(ExprPtr&)>& visit);

/// Whether a select hangs somewhere in the expression.
bool holds_subquery(const Expr& expr);

/// Whether a select reads columns of a select around it.
bool reads_outer_columns(Select& select);

/// Whether the node is a call of an aggregate.
bool is_aggregate(const Expr& expr);

/// Whether it is an aggregate that the client can compute: of all rows of a group, or of values
/// whose type is known, and not of distinct ones.
bool is_simple_aggregate(const Expr& aggregate);

ExprPtr clone(const Expr& expr);
SelectPtr clone(const Select& select);

/// Equal in meaning once both are bound: the same operations on the same columns and literals. Two
/// selects are never the same.
bool same_meaning(const Expr& left, const Expr& right);

}  // namespace tela::tsql
