#include "platform/embedded/grouping/group_rows.h"

#include <exception>

#include "platform/embedded/grouping/group_queries.h"

namespace tela::embedded {
namespace {

constexpr const char* pointer_type = "tela_groups";

/// What SQLite keeps for a call from row to row, zero before the first.
struct CallMemory {
  GroupRows* rows;
};

// Who takes the rows comes as an argument; behind the first row it is at hand in the call's own
// memory.
GroupRows* taker_of(sqlite3_context* context, sqlite3_value* argument) {
  auto* memory = static_cast<CallMemory*>(sqlite3_aggregate_context(context, sizeof(CallMemory)));
  if (memory == nullptr) return nullptr;
  if (memory->rows == nullptr) {
    memory->rows = static_cast<GroupRows*>(sqlite3_value_pointer(argument, pointer_type));
  }
  return memory->rows;
}

// Takes rows inside SQLite's own loop: an aggregate function that keeps no value.
void collect_row(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  GroupRows* rows = taker_of(context, values[0]);
  if (rows == nullptr) return sqlite3_result_error(context, "tela_collect is internal.", -1);
  try {
    if (!rows->add(values + 1)) {
      sqlite3_result_error(context, "There are too many groups.", -1);
    }
  } catch (const std::exception&) {  // nothing but memory can be short
    sqlite3_result_error_nomem(context);
  }
}

/// Binds a value; SQLite keeps a copy, for the select may outlive the call.
struct Bind {
  sqlite3_stmt* statement;
  int position;

  int operator()(std::monostate) const { return sqlite3_bind_null(statement, position); }
  int operator()(std::int64_t value) const {
    return sqlite3_bind_int64(statement, position, value);
  }
  int operator()(double value) const { return sqlite3_bind_double(statement, position, value); }
  int operator()(const std::string& value) const {
    return sqlite3_bind_text64(statement, position, value.data(), value.size(), SQLITE_TRANSIENT,
                               SQLITE_UTF8);
  }
};

void end_rows(sqlite3_context* context) {
  sqlite3_result_null(context);
}

}  // namespace

int prepare(sqlite3* database, const std::string& sql, const GroupCall& call,
            StatementHandle& select) {
  sqlite3_stmt* statement = nullptr;
  int code =
      sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  select.reset(statement);
  for (std::size_t i = 0; i < call.parameters.size() && code == SQLITE_OK; ++i) {
    code = std::visit(Bind{statement, static_cast<int>(i) + 1}, call.parameters[i]);
  }
  return code;
}

GroupRows::GroupRows(sqlite3* database, const GroupCall& call, std::size_t most_groups)
    : call_(call),
      groups_(call.plan),
      most_groups_(most_groups),
      code_(prepare(database, collecting_sql(call.source, call.plan), call, select_)) {
  if (!has_succeeded()) return;
  const int behind_parameters = sqlite3_bind_parameter_count(select_.get());
  code_ = sqlite3_bind_pointer(select_.get(), behind_parameters, this, pointer_type, nullptr);
}

void GroupRows::read() {
  if (!has_succeeded()) return;
  const int code = sqlite3_step(select_.get());
  sqlite3_reset(select_.get());
  code_ = code == SQLITE_ROW ? SQLITE_OK : code;
}

void GroupRows::read(const DayPart& days) {
  if (has_succeeded()) code_ = sqlite3_bind_int64(select_.get(), call_.first_day, days.first);
  if (has_succeeded()) code_ = sqlite3_bind_int64(select_.get(), call_.last_day, days.last);
  read();
}

bool GroupRows::add(GroupTable::Row row) {
  groups_.add(row);
  return !is_full();
}

int register_collector(sqlite3* database) {
  return sqlite3_create_function_v2(database, "tela_collect", -1, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                    nullptr, nullptr, collect_row, end_rows, nullptr);
}

}  // namespace tela::embedded
