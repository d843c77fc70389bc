// SQLite's database and statement handles as values that clean up after themselves. Every failure
// throws DatabaseError, in words for the user.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/database/database_client.h"

namespace tela::embedded {

/// The failure that SQLite reports under a (possibly extended) result code on `database`.
DatabaseError sqlite_error(sqlite3* database, int code);

/// One SQLite connection.
class Database {
 public:
  /// `open_flags` are SQLite's SQLITE_OPEN_… flags. An empty file name is a private database that
  /// lives in memory, on the disk beyond its cache, and vanishes with the handle.
  Database(const std::filesystem::path& file, int open_flags);

  sqlite3* handle() const { return handle_.get(); }

  /// Runs statements whose rows, if any, are of no interest.
  void run(const char* sql);
  /// The first column of the first row; 0 where there is none.
  std::int64_t number(std::string_view sql) const;
  std::string text(std::string_view sql) const;

  bool is_read_only() const { return sqlite3_db_readonly(handle(), "main") == 1; }
  bool in_transaction() const { return sqlite3_get_autocommit(handle()) == 0; }

 private:
  struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

/// Ends a prepared statement.
struct Finalize {
  void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, Finalize>;

/// One prepared statement.
class Statement {
 public:
  Statement() = default;
  Statement(const Database& database, std::string_view sql);

  explicit operator bool() const { return handle_ != nullptr; }
  sqlite3_stmt* handle() const { return handle_.get(); }

  /// Goes to the next row; false behind the last one.
  bool step();
  /// Makes it ready to run again; lets go of its locks. What is bound stays.
  void reset() noexcept { sqlite3_reset(handle()); }

  void bind(int position, std::int64_t value);
  void bind(int position, double value);
  /// The text must stand until the statement is run.
  void bind(int position, std::string_view value);
  void bind_null(int position);
  /// Another statement's current column as it is stored.
  void bind_column_of(const Statement& source, int column, int position);

  std::int64_t number(int column) const { return sqlite3_column_int64(handle(), column); }
  std::string text(int column) const;

 private:
  void check_bind(int code);

  StatementHandle handle_;
};

/// Resets a statement at the end of the scope that runs it.
class Run {
 public:
  explicit Run(Statement& statement) : statement_(statement) {}
  ~Run() { statement_.reset(); }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

 private:
  Statement& statement_;
};

}  // namespace tela::embedded
