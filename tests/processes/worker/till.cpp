#include "till.h"

#include <cstdlib>
#include <iostream>

namespace tela::testing {
namespace {

constexpr int lines_of_a_bill = 5;

}  // namespace

Till::Till(const std::string& file, int number)
    : connection_(open(file)), checkpointer_(open(file)), number_(number) {}

Till::~Till() {
  sqlite3_close(checkpointer_);
  sqlite3_close(connection_);
}

sqlite3* Till::open(const std::string& file) {
  sqlite3* connection = nullptr;
  if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK) {
    std::cerr << "till: cannot open " << file << '\n';
    std::exit(1);
  }
  sqlite3_busy_timeout(connection, 10'000);
  run(connection, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; PRAGMA wal_autocheckpoint=0");
  return connection;
}

void Till::run(sqlite3* connection, const std::string& sql) {
  if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) return;
  std::cerr << "till: " << sqlite3_errmsg(connection) << " in: " << sql << '\n';
  std::exit(1);
}

void Till::write_bill() {
  const std::string number = std::to_string(number_ * 1'000'000 + ++bills_);
  run(connection_, "BEGIN IMMEDIATE");
  run(connection_, "INSERT INTO SalesTemp VALUES(" + number + ",20240105," +
                       std::to_string(lines_of_a_bill * 10) + ")");
  for (int line = 0; line < lines_of_a_bill; ++line)
    run(connection_,
        "INSERT INTO Sales VALUES(" + number + ",20240105,'item " + std::to_string(line) + "',10)");
  run(connection_, "COMMIT");
}

void Till::checkpoint() {
  run(connection_, "BEGIN IMMEDIATE");
  run(checkpointer_, "PRAGMA wal_checkpoint(PASSIVE)");
  run(connection_, "ROLLBACK");
}

}  // namespace tela::testing
