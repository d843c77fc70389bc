#include "platform/embedded/embedded_session.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/embedded/embedded_catalogue.h"
#include "platform/embedded/grouping/day_parts.h"
#include "platform/embedded/grouping/group_module.h"
#include "platform/embedded/row_spool.h"
#include "platform/embedded/sql_functions.h"
#include "platform/embedded/stored_values.h"

namespace tela {

using embedded::CachedStatement;
using embedded::Reach;
using embedded::Run;
using embedded::Statement;
using tsql::StatementKind;
using Kind = DatabaseError::Kind;

namespace {

DatabaseError as_database_error(const tsql::CompileError& error) {
  switch (error.kind()) {
    case tsql::CompileError::Kind::syntax:
      return {Kind::syntax, error.what()};
    case tsql::CompileError::Kind::unknown_name:
      return {Kind::unknown_name, error.what()};
    case tsql::CompileError::Kind::value:
      break;
  }
  return {Kind::value, error.what()};
}

void require_catalogue_file(const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  const std::string name = "The catalogue file '" + file.string() + "'";
  if (!std::filesystem::exists(status))
    throw DatabaseError(Kind::connection, name + " is not there.");
  if (!std::filesystem::is_regular_file(status))
    throw DatabaseError(Kind::connection, name + " is no file.");
  // SQLite would take an empty file for a catalogue without tables.
  if (std::filesystem::file_size(file, error) == 0)
    throw DatabaseError(Kind::storage, name + " is damaged: it is empty.");
}

/// Puts a file that came from elsewhere (a restored dump, say) under the catalogue's journal mode;
/// one that is read-only or in use stays as it is, and is only slower to share.
void set_write_ahead_log(embedded::Database& database) {
  if (database.is_read_only() || database.text("PRAGMA journal_mode") == "wal") return;
  try {
    database.run("PRAGMA journal_mode=WAL");
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::busy) throw;
  }
}

/// The literals of a statement as the values that its parameters take. They must stand while the
/// statement runs.
std::vector<tsql::StoredValue> bind_literals(Statement& statement, const tsql::Compiled& compiled,
                                             const tsql::Normalized& literals) {
  std::vector<tsql::StoredValue> values;
  values.reserve(compiled.parameters.size());
  for (const tsql::Parameter& parameter : compiled.parameters)
    values.push_back(tsql::convert_literal(literals.literals[parameter.literal], parameter));
  // A part of a statement may use the first parameters alone.
  const auto used = static_cast<std::size_t>(sqlite3_bind_parameter_count(statement.handle()));
  for (std::size_t i = 0; i < std::min(used, values.size()); ++i)
    embedded::bind_stored(statement, static_cast<int>(i) + 1, values[i]);
  return values;
}

Statement& prepared(Statement& statement, const embedded::Database& database,
                    const std::string& sql) {
  if (!statement) statement = Statement(database, sql);
  return statement;
}

bool is_definition(StatementKind kind) {
  switch (kind) {
    case StatementKind::select:
    case StatementKind::insert:
    case StatementKind::update:
    case StatementKind::delete_rows:
      return false;
    default:
      return true;
  }
}

void run_to_end(Statement& statement) {
  const Run run(statement);
  while (statement.step()) {
  }
}

Reach reach_of(const tsql::Compiled& compiled) {
  const bool is_temporary = compiled.kind == StatementKind::select ? !compiled.reads_catalogue
                                                                   : compiled.target_is_temporary;
  return is_temporary ? Reach::temporary : Reach::catalogue;
}

}  // namespace

std::unique_ptr<Connection> make_embedded_connection(std::filesystem::path file) {
  return std::make_unique<EmbeddedSession>(std::move(file));
}

EmbeddedSession::OpenFile::OpenFile(const std::filesystem::path& file)
    : log(file),
      database(file, SQLITE_OPEN_READWRITE),
      schema(database),
      transaction(database),
      helpers(file, clock) {
  clock.watch(database);
  log.watch(database);
}

EmbeddedSession::~EmbeddedSession() {
  if (!in_transaction()) return;
  try {
    open_->transaction.rollback();
  } catch (const DatabaseError&) {
    // SQLite undoes the rest when the handle closes.
  }
}

void EmbeddedSession::open(std::string_view) {
  if (open_) throw DatabaseError(Kind::other, "The connection is already open.");
  require_catalogue_file(file_);
  auto opening = std::make_unique<OpenFile>(file_);
  opening->clock.start(timeout_);
  opening->clock.set_keep_going(keep_going_);
  embedded::Database& database = opening->database;
  // A quoted name that is no column must not turn into a text.
  sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  database.run(
      "PRAGMA synchronous=FULL; PRAGMA cache_size=-65536; PRAGMA journal_size_limit=8388608");
  set_write_ahead_log(database);
  register_sql_functions(database.handle());
  embedded::register_groups(database.handle(), {.helpers = &opening->helpers});
  // The first look into the file: here a damaged one shows.
  opening->schema.notice_changes();
  open_ = std::move(opening);
  checkpoint_if_due();
}

EmbeddedSession::OpenFile& EmbeddedSession::opened() const {
  if (!open_) throw DatabaseError(Kind::connection, "The connection is closed.");
  return *open_;
}

embedded::Database& EmbeddedSession::database() {
  opened().clock.start(std::chrono::seconds(0));
  return open_->database;
}

const embedded::CatalogueSchema& EmbeddedSession::schema() {
  notice_schema_changes();
  return opened().schema;
}

void EmbeddedSession::enter_for_writing() {
  opened().transaction.require_standing();
  open_->clock.start(timeout_);
  open_->transaction.enter(Reach::catalogue);
}

void EmbeddedSession::note_failure(const DatabaseError& error) {
  opened().transaction.note_failure(error.what());
}

void EmbeddedSession::set_command_timeout(std::chrono::seconds timeout) {
  timeout_ = timeout;
}

void EmbeddedSession::set_keep_going(const KeepGoing& keep_going) {
  keep_going_ = keep_going;
  if (open_) open_->clock.set_keep_going(keep_going_);
}

RowSet EmbeddedSession::execute(std::string_view sql) {
  RowSet rows;
  rows.fields = attempt(sql, [&](std::span<const Field>, std::vector<Value>& row) {
    rows.rows.push_back(std::move(row));
  });
  return rows;
}

void EmbeddedSession::read_each(std::string_view sql, const RowVisitor& visit) {
  attempt(sql, [&](std::span<const Field> fields, std::vector<Value>& row) {
    open_->clock.wait_without_end();
    visit(fields, row);
  });
}

std::vector<Field> EmbeddedSession::attempt(std::string_view sql, const RowTaker& take) {
  OpenFile& file = opened();
  file.transaction.require_standing();
  file.clock.start(timeout_);
  if (!file.clock.keeps_going()) throw Cancelled();
  try {
    std::vector<Field> fields = run(sql, take);
    if (!file.transaction.is_open()) checkpoint_if_due();
    return fields;
  } catch (const tsql::CompileError& error) {
    throw as_database_error(error);
  } catch (const DatabaseError& error) {
    note_failure(error);
    if (file.clock.is_cancelled()) throw Cancelled();
    throw;
  }
}

std::vector<Field> EmbeddedSession::run(std::string_view sql, const RowTaker& take) {
  notice_schema_changes();
  const tsql::Normalized statement = tsql::normalize(sql);
  if (CachedStatement* known = open_->cache.find(statement)) {
    if (known->compiled.kind == StatementKind::select) return select(*known, statement, take);
    change(*known, statement);
    return {};
  }
  tsql::Compiled compiled = tsql::compile(sql, open_->schema);
  if (is_definition(compiled.kind)) {
    define(compiled, sql);
    return {};
  }
  CachedStatement& fresh = open_->cache.add(statement, std::move(compiled));
  if (fresh.compiled.kind == StatementKind::select) return select(fresh, statement, take);
  change(fresh, statement);
  return {};
}

void EmbeddedSession::notice_schema_changes() {
  if (opened().transaction.holds_write_lock()) return;
  if (open_->schema.notice_changes()) open_->cache.clear();
}

std::vector<tsql::StoredValue> EmbeddedSession::bind(Statement& statement,
                                                     const tsql::Compiled& compiled,
                                                     const tsql::Normalized& literals) {
  auto values = bind_literals(statement, compiled, literals);
  const bool reads_many_days = std::ranges::any_of(compiled.group_days, [&](const auto& days) {
    return embedded::is_worth_dividing(
        {std::get<std::int64_t>(values[days.first]), std::get<std::int64_t>(values[days.last])});
  });
  if (reads_many_days) open_->helpers.prepare_for_statement();
  return values;
}

std::vector<Field> EmbeddedSession::select(CachedStatement& statement,
                                           const tsql::Normalized& literals, const RowTaker& take) {
  const tsql::Compiled& compiled = statement.compiled;
  open_->transaction.enter(reach_of(compiled));
  Statement& query = prepared(statement.whole, open_->database, compiled.sqlite_sql);
  const auto values = bind(query, compiled, literals);
  std::vector<Field> fields;
  for (const tsql::ResultColumn& column : compiled.columns)
    fields.push_back({column.name, embedded::field_type(column.type)});
  const Run run(query);
  std::vector<Value> row;
  while (query.step()) {
    row.clear();
    row.reserve(compiled.columns.size());
    for (std::size_t i = 0; i < compiled.columns.size(); ++i)
      row.push_back(embedded::read_value(query, static_cast<int>(i), compiled.columns[i].type));
    open_->clock.count_row();
    take(fields, row);
  }
  return fields;
}

void EmbeddedSession::change(CachedStatement& statement, const tsql::Normalized& literals) {
  const tsql::Compiled& compiled = statement.compiled;
  if (!compiled.source_sql.empty() && !compiled.target_is_temporary)
    return insert_from_select(statement, literals);
  Statement& change = prepared(statement.whole, open_->database, compiled.sqlite_sql);
  const auto values = bind(change, compiled, literals);
  open_->transaction.enter(reach_of(compiled));
  // SQLite undoes a failed statement by itself; alone, it is a turn at the write lock all the same.
  std::optional<embedded::AtomicStep> alone;
  if (!open_->transaction.is_open() && !compiled.target_is_temporary)
    alone.emplace(open_->transaction);
  run_to_end(change);
  if (alone) alone->keep();
}

// An insert from a select is two steps: the reading, which may take long and holds up nobody, and
// the writing of its rows under the lock.
void EmbeddedSession::insert_from_select(CachedStatement& statement,
                                         const tsql::Normalized& literals) {
  const tsql::Compiled& compiled = statement.compiled;
  Statement& source = prepared(statement.source, open_->database, compiled.source_sql);
  const auto values = bind(source, compiled, literals);
  embedded::RowSpool rows(source);
  open_->transaction.enter(Reach::catalogue);
  Statement& insert = prepared(statement.insert_row, open_->database, compiled.insert_row_sql);
  embedded::AtomicStep step(open_->transaction);
  rows.insert_each(insert);
  step.keep();
}

// Definitions change what every kept statement was compiled against.
void EmbeddedSession::define(const tsql::Compiled& compiled, std::string_view sql) {
  open_->cache.clear();
  open_->transaction.enter(reach_of(compiled));
  if (compiled.kind == StatementKind::create_procedure) {
    embedded::create_procedure_store(open_->database);
    open_->schema.store_procedure(compiled.target, sql);
  } else if (compiled.kind == StatementKind::drop_procedure) {
    open_->schema.remove_procedure(compiled.target);
  } else {
    open_->database.run(compiled.sqlite_sql.c_str());
  }
  if (compiled.kind == StatementKind::create_table && compiled.target_is_temporary)
    open_->transaction.note_created(compiled.target);
  open_->schema.forget();
}

void EmbeddedSession::checkpoint_if_due() {
  if (!open_->log.is_due()) return;
  open_->clock.start_without_waiting();
  open_->log.checkpoint(open_->database);
}

void EmbeddedSession::begin_trans() {
  opened().transaction.begin();
}

void EmbeddedSession::commit_trans() {
  opened().clock.start(timeout_);
  open_->clock.ask_nobody();
  open_->transaction.commit();
  checkpoint_if_due();
}

void EmbeddedSession::rollback_trans() {
  opened().clock.start(timeout_);
  open_->clock.ask_nobody();
  open_->transaction.rollback();
  // A table that the transaction created is gone, one that it dropped is back.
  open_->cache.clear();
  open_->schema.forget();
}

bool EmbeddedSession::in_transaction() const {
  return open_ && open_->transaction.is_open();
}

}  // namespace tela
