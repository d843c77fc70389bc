// What SQLite's result codes mean to the user of a catalogue.
#include <cstring>

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {
namespace {

using Kind = DatabaseError::Kind;

std::string file_of(sqlite3* database) {
  const char* name = database ? sqlite3_db_filename(database, "main") : nullptr;
  return name ? "'" + std::string(name) + "'" : "(temporary)";
}

/// What the operating system says about the last failure, in brackets, if it says anything.
std::string system_reason(sqlite3* database) {
  const int number = database ? sqlite3_system_errno(database) : 0;
  return number == 0 ? "" : std::string(" (") + std::strerror(number) + ")";
}

/// What an input or output error kept from being done.
const char* hindrance(int code) {
  switch (code) {
    case SQLITE_IOERR_WRITE:
    case SQLITE_IOERR_FSYNC:
    case SQLITE_IOERR_DIR_FSYNC:
    case SQLITE_IOERR_TRUNCATE:
    case SQLITE_IOERR_SHMSIZE:
      return " cannot be written: the disk may be full or failing";
    default:
      return " cannot be read: the disk may be failing";
  }
}

// The engine's own bound on nesting lies below the front end's for some statements.
bool is_too_deep(std::string_view engine) {
  return engine == "parser stack overflow" || engine.starts_with("Expression tree is too large");
}

}  // namespace

DatabaseError sqlite_error(sqlite3* database, int code) {
  const std::string engine = database ? sqlite3_errmsg(database) : sqlite3_errstr(code);
  const std::string file = "The catalogue file " + file_of(database);
  const auto error = [code](Kind kind, const std::string& message) {
    return DatabaseError(kind, message, code);
  };
  if (code == SQLITE_BUSY_SNAPSHOT)
    return error(Kind::busy, "Another program changed the catalogue during this transaction.");
  if (code == SQLITE_READONLY_DIRECTORY || code == SQLITE_READONLY_CANTINIT)
    return error(Kind::storage, file + " cannot be shared: its folder is read-only.");
  if (is_too_deep(engine)) return error(Kind::syntax, "The statement is nested too deeply.");
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return error(Kind::busy, file + " is in use: another program has held it for too long.");
    case SQLITE_INTERRUPT:
      return error(Kind::busy, "Timeout expired: the statement took too long.");
    case SQLITE_NOTADB:
      return error(Kind::storage, file + " is damaged, or no catalogue: " + engine + ".");
    case SQLITE_CORRUPT:
      return error(Kind::storage, file + " is damaged: " + engine + ".");
    case SQLITE_FULL:
      return error(Kind::storage,
                   "The disk that holds the catalogue is full: " + file_of(database));
    case SQLITE_READONLY:
      return error(Kind::storage, file + " is read-only.");
    case SQLITE_IOERR:
      return error(Kind::storage, file + hindrance(code) + system_reason(database) + ".");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return error(Kind::connection, file + " cannot be opened" + system_reason(database) + ".");
    case SQLITE_ERROR:
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
      return error(Kind::value, engine);
    default:
      return error(Kind::other, engine);
  }
}

}  // namespace tela::embedded
