// A till as the billing program is one: SQLite by itself, and the till's side of the catalogue's
// rule.
#pragma once

#include <sqlite3.h>

#include <string>

namespace tela::testing {

class Till {
 public:
  /// `number` tells this till's bills from those of the others.
  Till(const std::string& file, int number);
  ~Till();
  Till(const Till&) = delete;
  Till& operator=(const Till&) = delete;

  /// Writes the next bill, header and lines in one transaction. Any failure ends the process.
  void write_bill();
  /// Copies the log into the file by the rule: while another connection holds the right to write.
  void checkpoint();
  int bills() const { return bills_; }

 private:
  void run(sqlite3* connection, const std::string& sql);
  sqlite3* open(const std::string& file);

  sqlite3* connection_;
  sqlite3* checkpointer_;
  int number_;
  int bills_ = 0;
};

}  // namespace tela::testing
