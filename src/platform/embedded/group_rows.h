// The rows that tela_groups groups: how SQLite makes them and hands them over.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/embedded/group_table.h"

namespace tela::embedded {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SelectHandle = std::unique_ptr<sqlite3_stmt, Finalize>;

/// What tela_groups was called with.
struct GroupCall {
  std::string_view source;  ///< ends in its where clause, if it bounds its days
  std::string_view plan;
  /// The numbers of the parameters that bound the source's days, from 1; 0 for none.
  int first_day = 0;
  int last_day = 0;
  /// The source's only table and its column with those days; empty if there are more tables.
  std::string_view table = {};
  std::string_view day_column = {};
  std::span<sqlite3_value*> parameters;
};

/// SQLite's result code.
int prepare(sqlite3* database, const std::string& sql, SelectHandle& select);
/// Prepares a select and binds the call's parameters. SQLite's result code.
int prepare(sqlite3* database, const std::string& sql, const GroupCall& call, SelectHandle& select);

/// Groups that rows go into until there are too many.
struct Collector {
  GroupTable groups;
  std::size_t most_groups;
  bool is_full = false;
};

/// A call's rows on one connection.
class GroupRows {
 public:
  /// Hands the rows of `source`, the call's own or a part of it, to the collector, which must stand
  /// as long as this does. SQLite's result code.
  int prepare(sqlite3* database, const GroupCall& call, std::string_view source,
              Collector& collector);
  /// From now on with another value for one of the source's parameters.
  int set(int parameter, std::int64_t value);
  /// Runs to the last row, or until the groups are too many, which is an error to SQLite.
  int collect();

 private:
  SelectHandle select_;
};

/// Makes the function that takes the rows known to a connection. SQLite's result code.
int register_collector(sqlite3* database);

}  // namespace tela::embedded
