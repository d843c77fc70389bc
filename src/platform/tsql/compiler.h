// The seam between the T-SQL front end and the engine that runs its output.
//
// compile() reads one T-SQL statement, checks every name and type against a schema, and gives
// SQLite SQL with the server's meaning. The literals of the statement become parameters, so that
// statements which differ in literals alone share one prepared statement: normalize() gives the key
// under which such statements are the same, and the literals that tell them apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tela::tsql {

enum class TypeKind { null, integer, decimal, real, text, date, time };

/// A T-SQL type. `length` is the most characters of a text (0: no limit); `precision` and `scale`
/// belong to decimals. `numeric` alone is decimal(18,0) and holds a code. The precision of an
/// integer tells its width: 1 bit, 3 tinyint, 5 smallint, 10 int, 19 bigint.
struct Type {
  TypeKind kind = TypeKind::null;
  int length = 0;
  int precision = 0;
  int scale = 0;
  bool operator==(const Type&) const = default;
};

/// The type that a column's declaration names ("varchar(60)", "numeric", "int"), as create table
/// statements keep it in the engine's schema. Throws CompileError for a type that is not known.
Type parse_type_name(std::string_view declared);

struct ColumnInfo {
  std::string name;
  Type type;
  bool leads_index = false;  ///< whether the engine finds rows by its value in an index
};

struct TableInfo {
  std::string name;  ///< as created; temporary tables keep their '#'
  std::vector<ColumnInfo> columns;
};

/// What the front end asks of the catalogue. Names compare without regard to case.
class Schema {
 public:
  virtual ~Schema() = default;
  /// The table of that name, a temporary one ("#name") included; null if there is none. It must
  /// live until the compile() that asked has returned.
  virtual const TableInfo* find_table(std::string_view name) const = 0;
  /// The text of the stored procedure ("create procedure …"); nullopt if there is none.
  virtual std::optional<std::string> find_procedure(std::string_view name) const = 0;
};

/// A statement that cannot be compiled, or a value that does not fit, in the server's words.
class CompileError : public std::runtime_error {
 public:
  enum class Kind { syntax, unknown_name, value };

  /// `position` is the byte of the statement where the fault lies; 0 where none can be named.
  CompileError(Kind kind, const std::string& message, std::size_t position = 0)
      : std::runtime_error(message), kind_(kind), position_(position) {}

  Kind kind() const { return kind_; }
  std::size_t position() const { return position_; }

 private:
  Kind kind_;
  std::size_t position_;
};

/// `integer` fits an int; more digits, or a decimal point, make a decimal; an exponent makes a
/// real.
enum class LiteralKind { text, integer, decimal, real };

/// A literal of a statement: a number as it is written, its sign included where the sign cannot be
/// a subtraction, or a text without its quotes.
struct Literal {
  LiteralKind kind = LiteralKind::text;
  std::string text;
  bool operator==(const Literal&) const = default;
};

/// A statement split into what it says and its literals, in the order of its text.
struct Normalized {
  std::string key;  ///< tokens, with a placeholder for each literal that tells its kind
  std::vector<Literal> literals;
};

/// One quick pass over the text. Throws CompileError if it holds what is no token.
Normalized normalize(std::string_view sql);

/// How a literal of the statement reaches the engine; values.h turns it into the value.
struct Parameter {
  std::size_t literal = 0;  ///< index into the statement's literals, in the order of its text
  Type target;              ///< what the literal is turned into when it is bound
  std::string table;   ///< the table whose column it goes into, for error messages; may be empty
  std::string column;  ///< that column; may be empty
  bool operator==(const Parameter&) const = default;
};

struct ResultColumn {
  std::string name;  ///< the alias, else the column's name as the statement writes it, else empty
  Type type;
};

enum class StatementKind {
  select,
  insert,
  update,
  delete_rows,
  create_table,
  create_index,
  create_procedure,
  drop_table,
  drop_procedure,
};

/// Which two of a list hold the first and the last day of a range, both of them part of it.
struct DayRange {
  std::size_t first = 0;
  std::size_t last = 0;
};

/// A compiled statement. `sqlite_sql` is ready to prepare; its ?1, ?2 … are `parameters` in order.
/// For create_procedure and drop_procedure it is empty: the engine keeps the statement's own text
/// under `target`, or forgets it.
struct Compiled {
  StatementKind kind = StatementKind::select;
  std::string sqlite_sql;
  std::vector<Parameter> parameters;
  std::vector<ResultColumn> columns;  ///< of a select
  std::string target;                 ///< the table or procedure that a change names, as created
  bool target_is_temporary = false;
  bool reads_catalogue = false;  ///< not the connection's temporary tables alone

  /// Pairs of `parameters` that bound the days of rows which the client groups: it may read such
  /// rows in parts.
  std::vector<DayRange> group_days;

  /// Literals that are part of `sqlite_sql` or `columns` (a top, an ordinal, an alias in quotes):
  /// the compilation serves another statement of the same key only if these are equal.
  std::vector<std::size_t> pinned;

  /// Of an insert from a select: the select alone, its columns turned into the types of the
  /// target's, and an insert of one such row, which takes the columns as ?1, ?2 …. Empty otherwise.
  /// Together they do what `sqlite_sql` does, in two steps.
  std::string source_sql;
  std::string insert_row_sql;
};

/// Who makes the groups of a grouped select: the client, which hashes the rows as they come, or the
/// engine, which sorts them first. The rows are the same.
enum class Grouping { by_client, by_engine };

/// Compiles one statement; a `;` behind it is passed over. Throws CompileError.
Compiled compile(std::string_view sql, const Schema& schema,
                 Grouping grouping = Grouping::by_client);

/// The statements of a script: parted by `;` or by a line that holds GO alone. Procedures end at
/// GO. Throws CompileError if the script holds what is no token.
std::vector<std::string_view> split_batch(std::string_view script);

}  // namespace tela::tsql
