#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

Database::Database(const std::filesystem::path& file, int open_flags) {
  sqlite3* handle = nullptr;
  const int code =
      sqlite3_open_v2(file.c_str(), &handle, open_flags | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK)
    throw sqlite_error(handle, handle ? sqlite3_extended_errcode(handle) : code);
  sqlite3_extended_result_codes(handle, 1);
}

void Database::run(const char* sql) {
  const int code = sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqlite_error(handle(), code);
}

std::int64_t Database::number(std::string_view sql) const {
  Statement statement(*this, sql);
  return statement.step() ? statement.number(0) : 0;
}

std::string Database::text(std::string_view sql) const {
  Statement statement(*this, sql);
  return statement.step() ? statement.text(0) : "";
}

Statement::Statement(const Database& database, std::string_view sql) {
  sqlite3_stmt* handle = nullptr;
  const int code = sqlite3_prepare_v3(database.handle(), sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &handle, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) throw sqlite_error(database.handle(), code);
}

bool Statement::step() {
  const int code = sqlite3_step(handle());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  throw sqlite_error(sqlite3_db_handle(handle()), code);
}

void Statement::check_bind(int code) {
  if (code != SQLITE_OK) throw sqlite_error(sqlite3_db_handle(handle()), code);
}

void Statement::bind(int position, std::int64_t value) {
  check_bind(sqlite3_bind_int64(handle(), position, value));
}

void Statement::bind(int position, double value) {
  check_bind(sqlite3_bind_double(handle(), position, value));
}

void Statement::bind(int position, std::string_view value) {
  // An empty view may point nowhere, which SQLite would take for a null.
  const char* text = value.empty() ? "" : value.data();
  check_bind(
      sqlite3_bind_text64(handle(), position, text, value.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bind_null(int position) {
  check_bind(sqlite3_bind_null(handle(), position));
}

void Statement::bind_column_of(const Statement& source, int column, int position) {
  check_bind(sqlite3_bind_value(handle(), position, sqlite3_column_value(source.handle(), column)));
}

std::string Statement::text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle(), column));
  if (!text) return "";
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle(), column))};
}

}  // namespace tela::embedded
