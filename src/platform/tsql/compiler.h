// The seam between the T-SQL front end and the engine that runs its output.
//
// compile() reads one T-SQL statement, checks every name and type against a schema, and gives SQLite
// SQL with the server's meaning. The literals of the statement become parameters, so that statements
// which differ in literals alone share one prepared statement.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tela::tsql {

enum class TypeKind { null, integer, decimal, real, text, date, time };

/// A T-SQL type. `length` is the most characters of a text (0: no limit); `precision` and `scale`
/// belong to decimals. `numeric` alone is decimal(18,0) and holds a code.
struct Type {
  TypeKind kind = TypeKind::null;
  int length = 0;
  int precision = 0;
  int scale = 0;
  bool operator==(const Type&) const = default;
};

struct ColumnInfo {
  std::string name;
  Type type;
};

struct TableInfo {
  std::string name;  ///< as created; temporary tables keep their '#'
  std::vector<ColumnInfo> columns;
};

/// What the front end asks of the catalogue. Names compare without regard to case.
class Schema {
 public:
  virtual ~Schema() = default;
  /// The table of that name, a temporary one ("#name") included; null if there is none.
  virtual const TableInfo* find_table(std::string_view name) const = 0;
  /// The text of the stored procedure ("create procedure …"); nullopt if there is none.
  virtual std::optional<std::string> find_procedure(std::string_view name) const = 0;
};

/// How a literal of the statement reaches the engine.
struct Parameter {
  std::size_t literal = 0;  ///< index into the statement's literals, in the order of its text
  Type target;              ///< what the literal is turned into when it is bound
  std::string column;       ///< the column it meets, for error messages; may be empty
};

struct ResultColumn {
  std::string name;
  Type type;
};

enum class StatementKind {
  select,
  insert,
  update,
  delete_rows,
  create_table,
  drop_table,
  create_procedure,
};

/// A compiled statement. `sqlite_sql` is ready to prepare; its ?1, ?2 … are `parameters` in order.
struct Compiled {
  StatementKind kind = StatementKind::select;
  std::string sqlite_sql;
  std::vector<Parameter> parameters;
  std::vector<ResultColumn> columns;  ///< of a select
  std::string target;                 ///< the table or procedure that a change names
  bool target_is_temporary = false;
};

}  // namespace tela::tsql
