#include "platform/embedded/group_rows.h"

#include <exception>

#include "platform/embedded/group_queries.h"

namespace tela::embedded {
namespace {

constexpr const char* collector_type = "tela_groups";

/// What SQLite keeps for a call from row to row, zero before the first.
struct CallMemory {
  Collector* collector;
};

// The collector comes as an argument; behind the first row it is at hand in the call's own memory.
Collector* collector_of(sqlite3_context* context, sqlite3_value* argument) {
  auto* memory = static_cast<CallMemory*>(sqlite3_aggregate_context(context, sizeof(CallMemory)));
  if (memory == nullptr) return nullptr;
  if (memory->collector == nullptr) {
    memory->collector = static_cast<Collector*>(sqlite3_value_pointer(argument, collector_type));
  }
  return memory->collector;
}

// Takes rows inside SQLite's own loop: an aggregate function that keeps no value.
void collect_row(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  Collector* collector = collector_of(context, values[0]);
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

}  // namespace

int prepare(sqlite3* database, const std::string& sql, const GroupCall& call,
            SelectHandle& select) {
  sqlite3_stmt* statement = nullptr;
  int code =
      sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  select.reset(statement);
  for (std::size_t i = 0; i < call.parameters.size() && code == SQLITE_OK; ++i) {
    code = sqlite3_bind_value(statement, static_cast<int>(i) + 1, call.parameters[i]);
  }
  return code;
}

int GroupRows::prepare(sqlite3* database, const GroupCall& call, Collector& collector) {
  first_day_ = call.first_day;
  last_day_ = call.last_day;
  const int code =
      embedded::prepare(database, collecting_sql(call.source, call.plan), call, select_);
  if (code != SQLITE_OK) return code;
  const int behind_parameters = sqlite3_bind_parameter_count(select_.get());
  return sqlite3_bind_pointer(select_.get(), behind_parameters, &collector, collector_type,
                              nullptr);
}

int GroupRows::choose(const DayPart& days) {
  const int code = sqlite3_bind_int64(select_.get(), first_day_, days.first);
  return code == SQLITE_OK ? sqlite3_bind_int64(select_.get(), last_day_, days.last) : code;
}

int GroupRows::collect() {
  const int code = sqlite3_step(select_.get());
  sqlite3_reset(select_.get());
  return code == SQLITE_ROW ? SQLITE_OK : code;
}

int register_collector(sqlite3* database) {
  return sqlite3_create_function_v2(database, "tela_collect", -1, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                    nullptr, nullptr, collect_row, end_rows, nullptr);
}

}  // namespace tela::embedded
