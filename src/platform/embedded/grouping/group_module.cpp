// An eponymous virtual table (https://sqlite.org/vtab.html): its hidden columns are the arguments
// of the call, its rows are made when a scan begins.
#include "platform/embedded/grouping/group_module.h"

#include <exception>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "platform/embedded/grouping/divided_groups.h"
#include "platform/embedded/grouping/group_queries.h"
#include "platform/embedded/grouping/group_rows.h"
#include "platform/embedded/grouping/packed_values.h"
#include "platform/embedded/sqlite_handles.h"
#include "platform/embedded/stored_values.h"

namespace tela::embedded {
namespace {

constexpr int first_argument = static_cast<int>(tsql::most_group_columns);
// SQLite checks the arguments beyond the sixteenth itself, and would ask the table for them.
constexpr int argument_count = 5;

struct GroupsTable : sqlite3_vtab {
  GroupsTable(sqlite3* connection, const GroupSettings& chosen)
      : sqlite3_vtab{}, database(connection), settings(chosen) {}
  sqlite3* database;
  GroupSettings settings;
};

/// Either the groups in memory with a position among them, or a select that stands on one.
struct Scan : sqlite3_vtab_cursor {
  Scan() : sqlite3_vtab_cursor{} {}
  std::optional<GroupTable> groups;
  StatementHandle sorted;
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
  for (int i = 0; i < argument_count; ++i) {
    columns += (i == 0 ? "a" : ", a") + std::to_string(i) + " HIDDEN";
  }
  return "CREATE TABLE groups(" + columns + ")";
}

int connect(sqlite3* database, void* settings, int /*count*/, const char* const* /*arguments*/,
            sqlite3_vtab** table, char** /*error*/) {
  const int code = sqlite3_declare_vtab(database, declaration().c_str());
  if (code != SQLITE_OK) return code;
  *table = new (std::nothrow) GroupsTable(database, *static_cast<const GroupSettings*>(settings));
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

GroupCall call_of(std::span<sqlite3_value*> arguments) {
  return {text_of(arguments[0]), text_of(arguments[1]), sqlite3_value_int(arguments[2]),
          sqlite3_value_int(arguments[3]), unpack_values(arguments[4])};
}

int step_sorted(Scan& scan) {
  const int code = sqlite3_step(scan.sorted.get());
  scan.at_end = code != SQLITE_ROW;
  return code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code;
}

int sort_rows(Scan& scan, sqlite3* database, const GroupCall& call) {
  const int code = prepare(database, sorted_groups_sql(call.source, call.plan), call, scan.sorted);
  return code == SQLITE_OK ? step_sorted(scan) : code;
}

void keep_groups(Scan& scan, GroupTable&& groups) {
  scan.groups = std::move(groups);
  scan.groups->sort();
  scan.at_end = scan.groups->size() == 0;
}

int hash_rows(Scan& scan, const GroupsTable& table, const GroupCall& call) {
  GroupRows rows(table.database, call, table.settings.most_in_memory);
  rows.read();
  if (rows.is_full()) return sort_rows(scan, table.database, call);
  if (rows.has_succeeded()) keep_groups(scan, std::move(rows.groups()));
  return rows.code();
}

int make_groups(Scan& scan, const GroupsTable& table, const GroupCall& call) {
  const auto& [most_in_memory, helpers] = table.settings;
  auto divided = helpers == nullptr
                     ? std::nullopt
                     : divided_groups(table.database, *helpers, call, most_in_memory);
  if (!divided) return hash_rows(scan, table, call);
  keep_groups(scan, *std::move(divided));
  return SQLITE_OK;
}

int begin_scan(sqlite3_vtab_cursor* cursor, int /*plan*/, const char* /*name*/, int count,
               sqlite3_value** arguments) {
  Scan& scan = scan_of(cursor);
  const GroupsTable& table = table_of(cursor);
  scan.groups.reset();
  scan.sorted.reset();
  scan.position = 0;
  try {
    const GroupCall call = call_of({arguments, static_cast<std::size_t>(count)});
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
  if (column >= first_argument) {
    return fail(cursor->pVtab, SQLITE_INTERNAL, "The groups were asked for an argument.");
  }
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

void register_groups(sqlite3* database, const GroupSettings& settings) {
  static const sqlite3_module module = make_module();
  const auto forget = [](void* kept) { delete static_cast<GroupSettings*>(kept); };
  int code = sqlite3_create_module_v2(database, "tela_groups", &module, new GroupSettings(settings),
                                      forget);
  if (code == SQLITE_OK) code = register_collector(database);
  if (code == SQLITE_OK) code = register_packing(database);
  if (code != SQLITE_OK) throw sqlite_error(database, code);
}

}  // namespace tela::embedded
