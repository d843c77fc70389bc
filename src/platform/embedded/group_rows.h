// The rows that tela_groups groups: how SQLite makes them and hands them over.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/embedded/day_parts.h"
#include "platform/embedded/group_table.h"

namespace tela::embedded {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SelectHandle = std::unique_ptr<sqlite3_stmt, Finalize>;

/// What tela_groups was called with.
struct GroupCall {
  std::string_view source;
  std::string_view plan;
  /// The numbers of the parameters that bound the source's days, from 1; 0 for none.
  int first_day = 0;
  int last_day = 0;
  std::span<sqlite3_value*> parameters;
};

/// Prepares a select and binds the call's parameters. SQLite's result code.
int prepare(sqlite3* database, const std::string& sql, const GroupCall& call, SelectHandle& select);

/// Groups that rows go into until there are too many.
struct Collector {
  GroupTable groups;
  std::size_t most_groups;
  bool is_full = false;
};

/// A call's source on one connection.
class GroupRows {
 public:
  /// Hands the rows to the collector, which must stand as long as this does. SQLite's result code.
  int prepare(sqlite3* database, const GroupCall& call, Collector& collector);
  /// From now on the rows of these days only; the call must bound its days.
  int choose(const DayPart& days);
  /// Runs to the last row, or until the groups are too many, which is an error to SQLite.
  int collect();

 private:
  SelectHandle select_;
  int first_day_ = 0;
  int last_day_ = 0;
};

/// Makes the function that takes the rows known to a connection. SQLite's result code.
int register_collector(sqlite3* database);

}  // namespace tela::embedded
