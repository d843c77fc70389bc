// A temporary table of the connection that one action creates and drops. A failure between the two
// drops it all the same, so that the next run finds none in its way.
#pragma once

#include <string>

#include "platform/database/database_client.h"

namespace tela {

class TemporaryTable {
 public:
  /// `name` is the table's, with its '#'. The caller creates it, in a transaction with its rows.
  TemporaryTable(Connection& connection, std::string name);
  ~TemporaryTable();
  TemporaryTable(const TemporaryTable&) = delete;
  TemporaryTable& operator=(const TemporaryTable&) = delete;

  /// Drops the table, in a transaction of its own. Throws DatabaseError.
  void drop();

 private:
  Connection& connection_;
  std::string name_;
  bool dropped_ = false;
};

}  // namespace tela
