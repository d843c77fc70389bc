// An eponymous virtual table (https://sqlite.org/vtab.html): its hidden columns are the arguments
// of the call, its rows are made when a scan begins.
#include "platform/embedded/group_module.h"

#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "platform/embedded/group_queries.h"
#include "platform/embedded/group_table.h"
#include "platform/embedded/sqlite_handles.h"
#include "platform/embedded/stored_values.h"

namespace tela::embedded {
namespace {

constexpr int first_argument = static_cast<int>(tsql::most_group_columns);
constexpr int most_arguments = static_cast<int>(tsql::most_group_parameters) + 2;

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Select = std::unique_ptr<sqlite3_stmt, Finalize>;

struct GroupsTable : sqlite3_vtab {
  GroupsTable(sqlite3* connection, std::size_t most)
      : sqlite3_vtab{}, database(connection), most_in_memory(most) {}
  sqlite3* database;
  std::size_t most_in_memory;
};

/// Either the groups in memory with a position among them, or a select that stands on one.
struct Scan : sqlite3_vtab_cursor {
  Scan() : sqlite3_vtab_cursor{} {}
  std::optional<GroupTable> groups;
  Select sorted;
  std::size_t position = 0;
  bool at_end = false;
};

GroupsTable& table_of(sqlite3_vtab_cursor* cursor) {
  return static_cast<GroupsTable&>(*cursor->pVtab);
}
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

int connect(sqlite3* database, void* most_in_memory, int /*count*/,
            const char* const* /*arguments*/, sqlite3_vtab** table, char** /*error*/) {
  const int code = sqlite3_declare_vtab(database, declaration().c_str());
  if (code != SQLITE_OK) return code;
  *table =
      new (std::nothrow) GroupsTable(database, *static_cast<const std::size_t*>(most_in_memory));
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

std::string_view text_of(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// What the scan was called with.
struct Call {
  std::string_view source;
  std::string_view plan;
  int parameter_count;
  sqlite3_value** parameters;
};

int prepare(sqlite3* database, std::string_view sql, const Call& call, Select& select) {
  sqlite3_stmt* statement = nullptr;
  int code =
      sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  select.reset(statement);
  for (int i = 0; i < call.parameter_count && code == SQLITE_OK; ++i) {
    code = sqlite3_bind_value(statement, i + 1, call.parameters[i]);
  }
  return code;
}

/// Takes the source's rows inside SQLite's own loop: an aggregate function that keeps no value.
struct Collector {
  static constexpr const char* pointer_type = "tela_groups";

  GroupTable groups;
  std::size_t most_groups;
  bool is_full = false;
};

void collect_row(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  auto* collector =
      static_cast<Collector*>(sqlite3_value_pointer(values[0], Collector::pointer_type));
  if (collector == nullptr) return sqlite3_result_error(context, "tela_collect is internal.", -1);
  try {
    collector->groups.add(values + 1);
  } catch (const std::exception&) {  // nothing but memory can be short
    return sqlite3_result_error_nomem(context);
  }
  if (collector->groups.size() <= collector->most_groups) return;
  collector->is_full = true;
  sqlite3_result_error(context, "There are too many groups.", -1);
}

void end_rows(sqlite3_context* context) {
  sqlite3_result_null(context);
}

// SQLite's code for how the source's rows ended.
int hash_rows(Collector& collector, sqlite3* database, const Call& call) {
  Select rows;
  int code = prepare(database, collecting_sql(call.source, call.plan), call, rows);
  if (code != SQLITE_OK) return code;
  const int behind_parameters = sqlite3_bind_parameter_count(rows.get());
  code = sqlite3_bind_pointer(rows.get(), behind_parameters, &collector, Collector::pointer_type,
                              nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(rows.get());
  return code == SQLITE_ROW ? SQLITE_OK : code;
}

int step_sorted(Scan& scan) {
  const int code = sqlite3_step(scan.sorted.get());
  scan.at_end = code != SQLITE_ROW;
  return code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code;
}

int sort_rows(Scan& scan, sqlite3* database, const Call& call) {
  const int code = prepare(database, sorted_groups_sql(call.source, call.plan), call, scan.sorted);
  return code == SQLITE_OK ? step_sorted(scan) : code;
}

int make_groups(Scan& scan, const GroupsTable& table, const Call& call) {
  Collector collector{GroupTable(call.plan), table.most_in_memory};
  const int code = hash_rows(collector, table.database, call);
  if (collector.is_full) return sort_rows(scan, table.database, call);
  if (code != SQLITE_OK) return code;
  collector.groups.sort();
  scan.groups = std::move(collector.groups);
  scan.at_end = scan.groups->size() == 0;
  return SQLITE_OK;
}

int begin_scan(sqlite3_vtab_cursor* cursor, int /*plan*/, const char* /*name*/, int count,
               sqlite3_value** arguments) {
  constexpr int own_arguments = 2;
  Scan& scan = scan_of(cursor);
  const GroupsTable& table = table_of(cursor);
  scan.groups.reset();
  scan.sorted.reset();
  scan.position = 0;
  try {
    const Call call{text_of(arguments[0]), text_of(arguments[1]), count - own_arguments,
                    arguments + own_arguments};
    const int code = make_groups(scan, table, call);
    return code == SQLITE_OK ? code : fail(cursor->pVtab, code, sqlite3_errmsg(table.database));
  } catch (const std::exception&) {  // nothing but memory can be short
    return SQLITE_NOMEM;
  }
}

int next_group(sqlite3_vtab_cursor* cursor) {
  Scan& scan = scan_of(cursor);
  if (scan.groups) {
    scan.at_end = ++scan.position >= scan.groups->size();
    return SQLITE_OK;
  }
  const int code = step_sorted(scan);
  if (code == SQLITE_OK) return code;
  return fail(cursor->pVtab, code, sqlite3_errmsg(table_of(cursor).database));
}

int is_behind_last(sqlite3_vtab_cursor* cursor) {
  return scan_of(cursor).at_end ? 1 : 0;
}

int column_value(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  const Scan& scan = scan_of(cursor);
  if (!scan.groups) {
    sqlite3_result_value(context, sqlite3_column_value(scan.sorted.get(), column));
    return SQLITE_OK;
  }
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

void register_groups(sqlite3* database, std::size_t most_in_memory) {
  static const sqlite3_module module = make_module();
  const auto forget = [](void* most) { delete static_cast<std::size_t*>(most); };
  int code = sqlite3_create_module_v2(database, "tela_groups", &module,
                                      new std::size_t(most_in_memory), forget);
  if (code == SQLITE_OK) {
    code = sqlite3_create_function_v2(database, "tela_collect", -1, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                      nullptr, nullptr, collect_row, end_rows, nullptr);
  }
  if (code != SQLITE_OK) throw sqlite_error(database, code);
}

}  // namespace tela::embedded
