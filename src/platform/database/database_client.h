// The database client: what the program asks of a catalogue, whichever engine holds it.
//
// A query's rows are all at hand as soon as it returns (a client-side cursor), so a record count is
// exact at once. Adapters implement Connection; Recordset is the cursor that screens walk.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/text/calendar.h"

namespace tela {

/// What a column holds. `number` is a floating number, `whole_number` an integer or a code.
enum class FieldType { text, number, whole_number, date, time };

/// One field of one row: null (monostate), or a value of one of the five types.
using Value = std::variant<std::monostate, std::string, double, std::int64_t, Date, TimeOfDay>;

/// Whether a value is the database's null.
inline bool is_null(const Value& value) {
  return std::holds_alternative<std::monostate>(value);
}

/// A result column: its name (the alias, else the column's name, else empty) and its type.
struct Field {
  std::string name;
  FieldType type = FieldType::text;
};

/// The rows of a query. A statement that returns no rows at all (an insert, say) has no fields.
struct RowSet {
  std::vector<Field> fields;
  std::vector<std::vector<Value>> rows;
};

/// Takes one row of a query: all fields, and the row's values in their order, which stand for the
/// call alone. It must run nothing on the connection that it reads from.
using RowVisitor = std::function<void(std::span<const Field>, std::span<const Value>)>;

/// A failed statement or connection, in the engine's words. Carries no password.
class DatabaseError : public std::runtime_error {
 public:
  enum class Kind {
    connection,    ///< the catalogue cannot be reached, or the connection is lost
    syntax,        ///< the statement cannot be read
    unknown_name,  ///< it names a table, column, function or procedure that is not there
    value,         ///< a value does not fit: no date, no number, too long, divided by zero
    busy,          ///< another program held the catalogue for too long, or the time-out ran out
    storage,       ///< the disk is full, the file is read-only or damaged
    other
  };

  /// `native_code` is the engine's own error number, 0 if it has none.
  DatabaseError(Kind kind, const std::string& message, int native_code = 0)
      : std::runtime_error(message), kind_(kind), native_code_(native_code) {}

  Kind kind() const { return kind_; }
  int native_code() const { return native_code_; }

 private:
  Kind kind_;
  int native_code_;
};

/// The user has ended a statement. It is no failure, and what passes over failures does not pass
/// over it: the whole action ends.
class Cancelled : public std::exception {
 public:
  const char* what() const noexcept override { return "The work was cancelled."; }
};

/// Asked again and again while a statement runs, on the thread that runs it, with the rows that it
/// has given so far. False ends it. It must not throw, and run nothing on the connection.
using KeepGoing = std::function<bool(std::int64_t rows)>;

/// Where a connection keeps the rows of a query.
enum class CursorLocation { server, client };

/// One connection to a catalogue. Every failure throws DatabaseError. A connection that is
/// destroyed rolls back what is open; the catalogue then stands as the last commit left it.
class Connection {
 public:
  virtual ~Connection() = default;

  /// Opens the catalogue that the connection string names ("…;Initial Catalog=NAME").
  virtual void open(std::string_view connection_string) = 0;

  /// Rows are kept at the client in any case; the setting is accepted for either value.
  virtual void set_cursor_location(CursorLocation location) = 0;

  /// How long a statement may take, waiting for other programs included. The default is 30 seconds.
  virtual void set_command_timeout(std::chrono::seconds timeout) = 0;

  /// Has `keep_going` asked by every statement from now on. One that it ends throws Cancelled and
  /// leaves the catalogue as it was ahead of it. A connection without a way of its own asks
  /// nothing.
  virtual void set_keep_going(const KeepGoing& /*keep_going*/) {}

  /// Runs one T-SQL statement and returns its rows, if it has any.
  virtual RowSet execute(std::string_view sql) = 0;

  /// Runs one query and hands its rows to `visit` as they come: memory does not grow with them in
  /// an adapter that has a way of its own for it. A column whose type only the whole of its rows
  /// would show (date and time of day in one) is typed value by value. The command time-out holds
  /// until the first row comes; from then on `visit` decides how long it takes. What `visit` throws
  /// ends the reading and goes on up.
  virtual void read_each(std::string_view sql, const RowVisitor& visit);

  virtual void begin_trans() = 0;
  virtual void commit_trans() = 0;
  /// Undoes what the open transaction did. Throws if none is open.
  virtual void rollback_trans() = 0;
  virtual bool in_transaction() const = 0;
};

/// Makes a connection that is not open yet. The program gets one from its platform.
using ConnectionFactory = std::function<std::unique_ptr<Connection>()>;

/// The cursor over one query's rows. Positioned on the first row when it opens.
class Recordset {
 public:
  /// Runs `sql` on `connection` and stands on its first row. Throws DatabaseError.
  void open(std::string_view sql, Connection& connection);

  bool is_open() const { return open_; }
  /// True when there is no current row. The recordset must be open, as for all that follows.
  bool eof() const;
  void move_first();
  void move_next();
  int record_count() const;
  int field_count() const;

  /// The field at `position` (from 0) of the current row. Throws DatabaseError at the end.
  const Value& field(int position) const;
  const Field& field_info(int position) const;

  void close();

 private:
  void require_open() const;

  RowSet rows_;
  std::size_t position_ = 0;
  bool open_ = false;
};

}  // namespace tela
