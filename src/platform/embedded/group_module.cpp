// An eponymous virtual table (https://sqlite.org/vtab.html): its hidden columns are the arguments
// of the call, its rows are made when a scan begins.
#include "platform/embedded/group_module.h"

#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "platform/embedded/group_table.h"
#include "platform/embedded/sqlite_handles.h"
#include "platform/embedded/stored_values.h"

namespace tela::embedded {
namespace {

constexpr int first_argument = static_cast<int>(tsql::most_group_columns);
constexpr int most_arguments = static_cast<int>(tsql::most_group_parameters) + 2;

struct GroupsTable : sqlite3_vtab {
  explicit GroupsTable(sqlite3* connection) : sqlite3_vtab{}, database(connection) {}
  sqlite3* database;
};

struct Scan : sqlite3_vtab_cursor {
  Scan() : sqlite3_vtab_cursor{} {}
  std::optional<GroupTable> groups;
  std::size_t position = 0;
};

Scan& scan_of(sqlite3_vtab_cursor* cursor) {
  return static_cast<Scan&>(*cursor);
}

std::string declaration() {
  std::string columns;
  for (int i = 0; i < first_argument; ++i) columns += "c" + std::to_string(i) + ", ";
  for (int i = 0; i < most_arguments; ++i) {
    columns += (i == 0 ? "a" : ", a") + std::to_string(i) + " HIDDEN";
  }
  return "CREATE TABLE groups(" + columns + ")";
}

int connect(sqlite3* database, void* /*data*/, int /*count*/, const char* const* /*arguments*/,
            sqlite3_vtab** table, char** /*error*/) {
  const int code = sqlite3_declare_vtab(database, declaration().c_str());
  if (code != SQLITE_OK) return code;
  *table = new (std::nothrow) GroupsTable(database);
  return *table == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int disconnect(sqlite3_vtab* table) {
  delete static_cast<GroupsTable*>(table);
  return SQLITE_OK;
}

// The one plan: every argument goes to the scan, in its order. What else is asked of the groups,
// SQLite checks itself.
int best_index(sqlite3_vtab* /*table*/, sqlite3_index_info* index) {
  constexpr double groups_of_a_day = 200;
  for (int i = 0; i < index->nConstraint; ++i) {
    const auto& constraint = index->aConstraint[i];
    const int argument = constraint.iColumn - first_argument;
    if (argument < 0) continue;
    if (constraint.usable == 0 || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) {
      return SQLITE_CONSTRAINT;
    }
    index->aConstraintUsage[i].argvIndex = argument + 1;
    index->aConstraintUsage[i].omit = 1;
  }
  index->estimatedRows = static_cast<sqlite3_int64>(groups_of_a_day);
  index->estimatedCost = groups_of_a_day;
  return SQLITE_OK;
}

int open_scan(sqlite3_vtab* /*table*/, sqlite3_vtab_cursor** cursor) {
  *cursor = new (std::nothrow) Scan();
  return *cursor == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int close_scan(sqlite3_vtab_cursor* cursor) {
  delete static_cast<Scan*>(cursor);
  return SQLITE_OK;
}

// Makes the failure the table's: SQLite tells it as its own.
int fail(sqlite3_vtab* table, int code, const char* message) {
  sqlite3_free(table->zErrMsg);
  table->zErrMsg = sqlite3_mprintf("%s", message);
  return code;
}

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Source = std::unique_ptr<sqlite3_stmt, Finalize>;

int prepare(sqlite3* database, sqlite3_value* sql, Source& source) {
  sqlite3_stmt* statement = nullptr;
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(sql));
  const int code =
      sqlite3_prepare_v2(database, text, sqlite3_value_bytes(sql), &statement, nullptr);
  source.reset(statement);
  return code;
}

// SQLite's code for how the source's rows ended.
int make_groups(Scan& scan, sqlite3_stmt* source, std::string_view plan) {
  scan.groups.emplace(plan);
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(source)) == SQLITE_ROW) scan.groups->add(source);
  if (code != SQLITE_DONE) return code;
  scan.groups->sort();
  return SQLITE_OK;
}

int begin_scan(sqlite3_vtab_cursor* cursor, int /*plan*/, const char* /*name*/, int count,
               sqlite3_value** arguments) {
  Scan& scan = scan_of(cursor);
  scan.groups.reset();
  scan.position = 0;
  sqlite3* database = static_cast<GroupsTable*>(cursor->pVtab)->database;
  Source source;
  int code = prepare(database, arguments[0], source);
  for (int i = 2; i < count && code == SQLITE_OK; ++i) {
    code = sqlite3_bind_value(source.get(), i - 1, arguments[i]);
  }
  if (code == SQLITE_OK) {
    try {
      code = make_groups(scan, source.get(),
                         reinterpret_cast<const char*>(sqlite3_value_text(arguments[1])));
    } catch (const std::exception&) {  // nothing but memory can be short
      return SQLITE_NOMEM;
    }
  }
  return code == SQLITE_OK ? code : fail(cursor->pVtab, code, sqlite3_errmsg(database));
}

int next_group(sqlite3_vtab_cursor* cursor) {
  ++scan_of(cursor).position;
  return SQLITE_OK;
}

int is_behind_last(sqlite3_vtab_cursor* cursor) {
  const Scan& scan = scan_of(cursor);
  return scan.position >= scan.groups->size() ? 1 : 0;
}

int column_value(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  const Scan& scan = scan_of(cursor);
  try {
    set_result(context, scan.groups->value(scan.position, static_cast<std::size_t>(column)));
    return SQLITE_OK;
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (const std::exception& error) {
    return fail(cursor->pVtab, SQLITE_ERROR, error.what());
  }
}

int row_id(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
  *id = static_cast<sqlite3_int64>(scan_of(cursor).position);
  return SQLITE_OK;
}

// Without a create function the table is there for every statement and can be read alone.
sqlite3_module make_module() {
  sqlite3_module module{};
  module.xConnect = connect;
  module.xDisconnect = disconnect;
  module.xBestIndex = best_index;
  module.xOpen = open_scan;
  module.xClose = close_scan;
  module.xFilter = begin_scan;
  module.xNext = next_group;
  module.xEof = is_behind_last;
  module.xColumn = column_value;
  module.xRowid = row_id;
  return module;
}

}  // namespace

void register_groups(sqlite3* database) {
  static const sqlite3_module module = make_module();
  const int code = sqlite3_create_module_v2(database, "tela_groups", &module, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqlite_error(database, code);
}

}  // namespace tela::embedded
