// The rows that tela_groups groups: how SQLite makes them and hands them over.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/embedded/grouping/day_parts.h"
#include "platform/embedded/grouping/group_table.h"
#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// What tela_groups was called with.
struct GroupCall {
  std::string_view source;
  std::string_view plan;
  /// The numbers of the parameters that bound the source's days, from 1; 0 for none.
  int first_day = 0;
  int last_day = 0;
  std::vector<tsql::StoredValue> parameters;
};

/// Prepares a select and binds the call's parameters. SQLite's result code: within a function that
/// SQLite calls, failures are told by codes.
int prepare(sqlite3* database, const std::string& sql, const GroupCall& call,
            StatementHandle& select);

/// A call's rows on one connection, with the groups that they go into. For one thread at a time. It
/// stays where it is made, for SQLite hands it the rows; the call must stand as long.
class GroupRows {
 public:
  /// Prepares the reading; a failure shows in code().
  GroupRows(sqlite3* database, const GroupCall& call, std::size_t most_groups);
  GroupRows(const GroupRows&) = delete;
  GroupRows& operator=(const GroupRows&) = delete;

  /// Adds all rows to the groups.
  void read();
  /// Adds the rows of these days; the call must bound its days.
  void read(const DayPart& days);
  /// Adds a row that SQLite hands over; false where the groups are now too many.
  bool add(GroupTable::Row row);

  /// SQLite's result code of what was done last. That the groups are too many is an error to it.
  int code() const { return code_; }
  bool has_succeeded() const { return code_ == SQLITE_OK; }
  bool is_full() const { return groups_.size() > most_groups_; }
  GroupTable& groups() { return groups_; }

 private:
  const GroupCall& call_;
  GroupTable groups_;
  std::size_t most_groups_;
  StatementHandle select_;
  int code_;
};

/// Makes the function that takes the rows known to a connection. SQLite's result code.
int register_collector(sqlite3* database);

}  // namespace tela::embedded
