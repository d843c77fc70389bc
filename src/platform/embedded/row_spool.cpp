#include "platform/embedded/row_spool.h"

#include <string>

namespace tela::embedded {
namespace {

/// "c1,c2,…" with as many columns as asked for, each led by `mark`.
std::string column_list(int columns, const char* mark) {
  std::string list;
  for (int i = 1; i <= columns; ++i) list += (i > 1 ? "," : "") + (mark + std::to_string(i));
  return list;
}

}  // namespace

RowSpool::RowSpool(Statement& source)
    : store_("", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE),
      columns_(sqlite3_column_count(source.handle())) {
  store_.run("PRAGMA cache_size=-32768; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF");
  store_.run(("BEGIN; CREATE TABLE rows(" + column_list(columns_, "c") + ")").c_str());
  Statement keep(store_, "INSERT INTO rows VALUES(" + column_list(columns_, "?") + ")");
  const Run run(source);
  while (source.step()) {
    const Run kept(keep);
    for (int i = 0; i < columns_; ++i) keep.bind_column_of(source, i, i + 1);
    keep.step();
  }
}

void RowSpool::insert_each(Statement& insert) {
  Statement rows(store_, "SELECT * FROM rows ORDER BY rowid");
  while (rows.step()) {
    const Run run(insert);
    for (int i = 0; i < columns_; ++i) insert.bind_column_of(rows, i, i + 1);
    insert.step();
  }
}

}  // namespace tela::embedded
