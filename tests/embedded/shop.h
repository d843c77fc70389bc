// A small embedded catalogue in a folder of its own.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/embedded/embedded_catalogue.h"
#include "support/temporary_folder.h"

namespace tela::testing {

struct Shop {
  Shop() {
    const std::string_view scripts[] = {
        "create table Sales (BillNo numeric(18,0), BillDate date, BillTime time(0), "
        "iName varchar(20), Qty float)\nGO\n"
        "create table SalesPrint (iName varchar(20), Qty float)\nGO\n"};
    create_embedded_catalogue(file, scripts);
  }

  /// A connection that is open.
  std::unique_ptr<Connection> connect() const {
    auto connection = make_embedded_connection(file);
    connection->open("Initial Catalog=TelaData");
    return connection;
  }

  TemporaryFolder folder;
  std::filesystem::path file = folder / "TelaData.db";
};

/// All rows of a table, in the order in which they were added.
inline std::vector<std::vector<Value>> rows_of(const EmbeddedCatalogue& catalogue,
                                               std::string_view table) {
  std::vector<std::vector<Value>> rows;
  catalogue.read_rows(
      table, [&](std::span<const Value> row) { rows.emplace_back(row.begin(), row.end()); });
  return rows;
}

/// Another program on the catalogue, which knows nothing of this one: SQLite by itself.
class OtherProgram {
 public:
  explicit OtherProgram(const std::filesystem::path& file) {
    EXPECT_EQ(sqlite3_open(file.c_str(), &handle_), SQLITE_OK);
    sqlite3_wal_autocheckpoint(handle_, 0);
  }
  ~OtherProgram() { sqlite3_close(handle_); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  /// SQLite's result code; does not wait for a lock.
  int run(const char* sql) { return sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr); }

 private:
  sqlite3* handle_ = nullptr;
};

}  // namespace tela::testing
