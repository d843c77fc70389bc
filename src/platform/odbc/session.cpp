#include "platform/odbc/session.h"

#include <cstdint>
#include <future>
#include <optional>
#include <utility>

#include "platform/odbc/diagnosis.h"

namespace tela::odbc {
namespace {

/// A server that does not answer the login within this is not there.
constexpr std::chrono::seconds kLoginTimeout{15};

/// Between two questions whether a statement goes on.
constexpr std::chrono::milliseconds kAskEvery{20};
constexpr std::int64_t kRowsPerQuestion = 256;

/// ODBC passes small numbers where a pointer is declared.
SQLPOINTER as_pointer(std::intptr_t number) {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

EnvironmentHandle make_environment() {
  EnvironmentHandle environment(nullptr);
  if (environment)
    SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, as_pointer(SQL_OV_ODBC3), 0);
  return environment;
}

/// What the statement asks of the driver. A driver that lacks one of them does without: NOSCAN
/// keeps a driver from looking for escapes in a statement.
void prepare_statement(SQLHSTMT statement, std::chrono::seconds timeout) {
  SQLSetStmtAttr(statement, SQL_ATTR_NOSCAN, as_pointer(SQL_NOSCAN_ON), 0);
  SQLSetStmtAttr(statement, SQL_ATTR_QUERY_TIMEOUT, as_pointer(timeout.count()), 0);
}

/// Success, or success with nothing to do: an update that met no row is SQL_NO_DATA.
bool went_well(SQLRETURN result) {
  return SQL_SUCCEEDED(result) || result == SQL_NO_DATA;
}

std::vector<Field> fields_of(const std::vector<Column>& columns) {
  std::vector<Field> fields;
  fields.reserve(columns.size());
  for (const Column& column : columns) fields.push_back(column.field);
  return fields;
}

}  // namespace

Session::Session(const std::string& odbc_text, DriverText form)
    : form_(form),
      passwords_(odbc_text),
      environment_(make_environment()),
      connection_(environment_.get()) {
  if (!connection_) fail(SQL_HANDLE_ENV, environment_.get(), true);
  SQLSetConnectAttr(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, as_pointer(kLoginTimeout.count()),
                    0);
  if (!SQL_SUCCEEDED(driver_connect(connection_.get(), odbc_text, form_)))
    fail(SQL_HANDLE_DBC, connection_.get(), true);
}

Session::~Session() {
  SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
  SQLDisconnect(connection_.get());
}

void Session::fail(SQLSMALLINT handle_type, SQLHANDLE handle, bool connecting) const {
  const DatabaseError error = diagnose(diagnostics(handle_type, handle, form_),
                                       connecting ? Step::connect : Step::statement);
  throw DatabaseError(error.kind(), passwords_.scrub(error.what()), error.native_code());
}

RowSet Session::run(std::string_view sql, std::chrono::seconds timeout) {
  std::optional<RowSet> rows;
  run_batch(sql, timeout, [&](const StatementHandle& statement, const auto& columns) {
    if (rows) return;
    rows.emplace();
    rows->fields = fields_of(columns);
    fetch_rows(statement, columns,
               [&](std::vector<Value>& row) { rows->rows.push_back(std::move(row)); });
    settle_timestamps(columns, *rows);
  });
  return rows ? std::move(*rows) : RowSet{};
}

void Session::read_each(std::string_view sql, std::chrono::seconds timeout,
                        const RowVisitor& visit) {
  run_batch(sql, timeout, [&](const StatementHandle& statement, const auto& columns) {
    const std::vector<Field> fields = fields_of(columns);
    fetch_rows(statement, columns, [&](std::vector<Value>& row) {
      settle_timestamps(columns, row);
      visit(fields, row);
    });
  });
}

void Session::run_batch(std::string_view sql, std::chrono::seconds timeout,
                        const ResultTaker& take) {
  const StatementHandle statement(connection_.get());
  if (!statement) fail(SQL_HANDLE_DBC, connection_.get(), false);
  prepare_statement(statement.get(), timeout);
  SQLRETURN result = execute_asking(statement.get(), sql);
  do {
    if (!went_well(result)) fail(SQL_HANDLE_STMT, statement.get(), false);
    const std::vector<Column> columns = describe_columns(statement.get(), form_);
    if (!columns.empty()) take(statement, columns);
    result = SQLMoreResults(statement.get());
  } while (result != SQL_NO_DATA);
}

SQLRETURN Session::execute_asking(SQLHSTMT statement, std::string_view sql) {
  if (!keep_going_) return execute_direct(statement, sql, form_);
  if (!keep_going_(0)) throw Cancelled();
  auto running =
      std::async(std::launch::async, [&] { return execute_direct(statement, sql, form_); });
  bool cancelled = false;
  while (running.wait_for(kAskEvery) != std::future_status::ready) {
    if (cancelled || keep_going_(0)) continue;
    cancelled = true;
    SQLCancel(statement);
  }
  const SQLRETURN result = running.get();
  // A change that was through before the server heard of it stands, and is no cancelled one.
  SQLSMALLINT columns = 0;
  if (cancelled && went_well(result)) SQLNumResultCols(statement, &columns);
  if (cancelled && (!went_well(result) || columns > 0)) throw Cancelled();
  return result;
}

void Session::fetch_rows(const StatementHandle& statement, const std::vector<Column>& columns,
                         const RowTaker& take) const {
  SQLRETURN result = SQL_SUCCESS;
  std::vector<Value> row;
  std::int64_t rows = 0;
  while (SQL_SUCCEEDED(result = SQLFetch(statement.get()))) {
    row.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
      if (!read_value(statement.get(), static_cast<SQLUSMALLINT>(i + 1), columns[i], form_, row[i]))
        fail(SQL_HANDLE_STMT, statement.get(), false);
    take(row);
    if (++rows % kRowsPerQuestion == 0 && keep_going_ && !keep_going_(rows)) throw Cancelled();
  }
  if (result != SQL_NO_DATA) fail(SQL_HANDLE_STMT, statement.get(), false);
}

void Session::begin() {
  set_autocommit(false);
}

void Session::commit() {
  end_transaction(SQL_COMMIT);
}

void Session::roll_back() {
  end_transaction(SQL_ROLLBACK);
}

void Session::end_transaction(SQLSMALLINT how) {
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_.get(), how)))
    fail(SQL_HANDLE_DBC, connection_.get(), false);
  set_autocommit(true);
}

void Session::set_autocommit(bool on) {
  const SQLPOINTER mode = as_pointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF);
  if (!SQL_SUCCEEDED(SQLSetConnectAttr(connection_.get(), SQL_ATTR_AUTOCOMMIT, mode, 0)))
    fail(SQL_HANDLE_DBC, connection_.get(), false);
}

bool Session::alive() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN result =
      SQLGetConnectAttr(connection_.get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  return !SQL_SUCCEEDED(result) || dead != SQL_CD_TRUE;
}

}  // namespace tela::odbc
