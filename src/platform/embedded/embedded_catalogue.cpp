#include "platform/embedded/embedded_catalogue.h"

#include <algorithm>
#include <utility>

#include "platform/embedded/embedded_session.h"
#include "platform/embedded/stored_values.h"
#include "platform/embedded/unfinished_catalogue.h"
#include "platform/text/ascii.h"
#include "platform/tsql/engine_names.h"

namespace tela {

namespace fs = std::filesystem;
using embedded::Database;
using embedded::Statement;
using tsql::quoted_name;
using Kind = DatabaseError::Kind;

namespace {

void run_scripts(Connection& connection, std::span<const std::string_view> scripts) {
  connection.begin_trans();
  for (const std::string_view script : scripts)
    for (const std::string_view statement : tsql::split_batch(script))
      connection.execute(statement);
  connection.commit_trans();
}

const tsql::TableInfo& require_table(const tsql::TableInfo* table, std::string_view name) {
  if (!table)
    throw DatabaseError(Kind::unknown_name, "Invalid object name '" + std::string(name) + "'.");
  return *table;
}

std::vector<tsql::ColumnInfo> choose_columns(const tsql::TableInfo& table,
                                             std::span<const std::string> names) {
  std::vector<tsql::ColumnInfo> chosen;
  for (const std::string& name : names) {
    const auto found =
        std::find_if(table.columns.begin(), table.columns.end(),
                     [&](const auto& column) { return equal_ignoring_case(column.name, name); });
    if (found == table.columns.end())
      throw DatabaseError(Kind::unknown_name, "Invalid column name '" + name + "'.");
    chosen.push_back(*found);
  }
  return chosen;
}

std::string name_list(const std::vector<tsql::ColumnInfo>& columns) {
  std::string list;
  for (const auto& column : columns) list += (list.empty() ? "" : ",") + quoted_name(column.name);
  return list;
}

void make_empty_file(const fs::path& file) {
  embedded::Database database(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  database.run("PRAGMA page_size=4096");
  embedded::create_procedure_store(database);
}

}  // namespace

struct BulkInserter::Insert {
  EmbeddedSession& session;
  std::string table;
  std::vector<tsql::ColumnInfo> columns;
  Statement statement;
};

BulkInserter::BulkInserter(std::unique_ptr<Insert> insert) : insert_(std::move(insert)) {}
BulkInserter::BulkInserter(BulkInserter&&) noexcept = default;
BulkInserter& BulkInserter::operator=(BulkInserter&&) noexcept = default;
BulkInserter::~BulkInserter() = default;

void BulkInserter::add(std::span<const Value> row) {
  auto& [session, table, columns, statement] = *insert_;
  if (!session.in_transaction())
    throw DatabaseError(Kind::other, "Rows are added in bulk within a transaction only.");
  if (row.size() != columns.size())
    throw DatabaseError(Kind::value, "The row for '" + table + "' has " +
                                         std::to_string(row.size()) + " values instead of " +
                                         std::to_string(columns.size()) + ".");
  session.enter_for_writing();
  for (std::size_t i = 0; i < row.size(); ++i)
    embedded::bind_for_column(statement, static_cast<int>(i) + 1, row[i], table, columns[i]);
  const embedded::Run run(statement);
  try {
    statement.step();
  } catch (const DatabaseError& error) {
    session.note_failure(error);
    throw;
  }
}

EmbeddedCatalogue::EmbeddedCatalogue(const fs::path& file)
    : session_(std::make_unique<EmbeddedSession>(file)) {
  session_->open({});
}

EmbeddedCatalogue::~EmbeddedCatalogue() = default;
EmbeddedCatalogue::EmbeddedCatalogue(EmbeddedCatalogue&&) noexcept = default;
EmbeddedCatalogue& EmbeddedCatalogue::operator=(EmbeddedCatalogue&&) noexcept = default;

Connection& EmbeddedCatalogue::connection() {
  return *session_;
}

void EmbeddedCatalogue::run_script(std::string_view script) {
  for (const std::string_view statement : tsql::split_batch(script)) session_->execute(statement);
}

std::vector<std::string> EmbeddedCatalogue::table_names() const {
  return session_->schema().table_names();
}

const tsql::TableInfo* EmbeddedCatalogue::find_table(std::string_view name) const {
  return session_->schema().find_table(name);
}

BulkInserter EmbeddedCatalogue::inserter(std::string_view table,
                                         std::span<const std::string> columns) {
  const tsql::TableInfo& info = require_table(find_table(table), table);
  auto chosen = choose_columns(info, columns);
  std::string marks;
  for (std::size_t i = 1; i <= chosen.size(); ++i)
    marks += (i > 1 ? ",?" : "?") + std::to_string(i);
  Statement insert(session_->database(), "INSERT INTO " + quoted_name(info.name) + "(" +
                                             name_list(chosen) + ") VALUES(" + marks + ")");
  return BulkInserter(std::make_unique<BulkInserter::Insert>(
      BulkInserter::Insert{*session_, info.name, std::move(chosen), std::move(insert)}));
}

void EmbeddedCatalogue::read_rows(std::string_view table,
                                  const std::function<void(std::span<const Value>)>& visit) const {
  const tsql::TableInfo& info = require_table(find_table(table), table);
  Statement rows(session_->database(), "SELECT " + name_list(info.columns) + " FROM " +
                                           quoted_name(info.name) + " ORDER BY rowid");
  std::vector<Value> row(info.columns.size());
  while (rows.step()) {
    for (std::size_t i = 0; i < row.size(); ++i)
      row[i] = embedded::read_value(rows, static_cast<int>(i), info.columns[i].type);
    visit(row);
  }
}

std::vector<std::string> EmbeddedCatalogue::integrity_check() const {
  std::vector<std::string> faults;
  try {
    Statement check(session_->database(), "PRAGMA integrity_check");
    while (check.step())
      if (std::string fault = check.text(0); fault != "ok") faults.push_back(std::move(fault));
  } catch (const DatabaseError& error) {
    // Some damage ends the check itself.
    if (error.kind() != Kind::storage) throw;
    faults.emplace_back(error.what());
  }
  return faults;
}

void EmbeddedCatalogue::start_filling() {
  session_->database().run(
      "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA cache_size=-262144");
}

void EmbeddedCatalogue::finish_filling() {
  session_->database().run("PRAGMA synchronous=FULL; PRAGMA journal_mode=WAL");
}

void EmbeddedCatalogue::back_up(const std::filesystem::path& file) const {
  struct Finish {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
  };
  const embedded::UnfinishedCatalogue copy(file);
  {
    const Database to(copy.path(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    const std::unique_ptr<sqlite3_backup, Finish> backup(
        sqlite3_backup_init(to.handle(), "main", session_->database().handle(), "main"));
    // All pages in one step, so that they are those of one moment.
    const int code = backup ? sqlite3_backup_step(backup.get(), -1) : sqlite3_errcode(to.handle());
    if (code != SQLITE_DONE) throw embedded::sqlite_error(to.handle(), code);
  }
  copy.publish();
}

void create_embedded_catalogue(const fs::path& file, std::span<const std::string_view> scripts,
                               const std::function<void(EmbeddedCatalogue&)>& fill) {
  const embedded::UnfinishedCatalogue unfinished(file);
  make_empty_file(unfinished.path());
  {
    EmbeddedCatalogue catalogue(unfinished.path());
    catalogue.start_filling();
    run_scripts(catalogue.connection(), scripts);
    if (fill) fill(catalogue);
    catalogue.finish_filling();
  }
  unfinished.publish();
}

}  // namespace tela
