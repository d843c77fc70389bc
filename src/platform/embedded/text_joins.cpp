#include "platform/embedded/text_joins.h"

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {
namespace {

// The optimization that the number stands for has been the same since there are such filters.
void switch_filters_off(sqlite3* database) {
  constexpr unsigned bloom_filter = 0x00080000;
  sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, database, bloom_filter);
}

int call_equal(void* /*data*/, int /*left_size*/, const void* /*left*/, int /*right_size*/,
               const void* /*right*/) {
  return 0;
}

/// Whether joins keep all rows once the filters are switched off, asked of a database of its own
/// whose texts are all equal.
bool switch_works() {
  Database database(":memory:", SQLITE_OPEN_READWRITE);
  sqlite3_create_collation_v2(database.handle(), "ALIKE", SQLITE_UTF8, nullptr, call_equal,
                              nullptr);
  switch_filters_off(database.handle());
  database.run(
      "CREATE TABLE l(x TEXT); CREATE TABLE r(y TEXT);"
      "INSERT INTO l VALUES('a'), ('bb'); INSERT INTO r VALUES('ccc'), ('dddd')");
  return database.number("SELECT count(*) FROM l JOIN r ON x = y COLLATE ALIKE") == 4;
}

}  // namespace

void hash_no_texts(sqlite3* database) {
  static const bool works = switch_works();
  switch_filters_off(database);
  if (works) return;
  sqlite3_exec(database, "PRAGMA automatic_index=OFF", nullptr, nullptr, nullptr);
}

}  // namespace tela::embedded
