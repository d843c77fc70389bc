// One live connection of the ODBC driver: connecting, running statements, ending transactions.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/odbc/column_reader.h"
#include "platform/odbc/connection_text.h"
#include "platform/odbc/driver_text.h"
#include "platform/odbc/handles.h"

namespace tela::odbc {

/// Connected from its construction to its destruction, which rolls back what is open. Failures
/// throw DatabaseError, without passwords.
class Session {
 public:
  Session(const std::string& odbc_text, DriverText form);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Runs one batch unchanged and returns the rows of its first result that has any; the further
  /// results are run to their end, so that a failure among them is not passed over.
  RowSet run(std::string_view sql, std::chrono::seconds timeout);

  /// Runs one batch unchanged and hands the rows of its results to `visit` as they come.
  void read_each(std::string_view sql, std::chrono::seconds timeout, const RowVisitor& visit);

  /// Who is asked while a statement runs; one that is ended throws Cancelled.
  void set_keep_going(const KeepGoing& keep_going) { keep_going_ = keep_going; }

  void begin();
  void commit();
  void roll_back();

  /// False once the driver knows that the server is gone.
  bool alive() const;

 private:
  using ResultTaker = std::function<void(const StatementHandle&, const std::vector<Column>&)>;
  using RowTaker = std::function<void(std::vector<Value>&)>;

  [[noreturn]] void fail(SQLSMALLINT handle_type, SQLHANDLE handle, bool connecting) const;
  void set_autocommit(bool on);
  void end_transaction(SQLSMALLINT how);
  /// Runs a batch to its end; each of its results that has rows goes to `take` while it is open.
  void run_batch(std::string_view sql, std::chrono::seconds timeout, const ResultTaker& take);
  /// Runs the statement up to its first result, and asks meanwhile. Only the driver's call is on a
  /// thread of its own.
  SQLRETURN execute_asking(SQLHSTMT statement, std::string_view sql);
  void fetch_rows(const StatementHandle& statement, const std::vector<Column>& columns,
                  const RowTaker& take) const;

  DriverText form_;
  KeepGoing keep_going_;
  PasswordScrubber passwords_;
  EnvironmentHandle environment_;
  ConnectionHandle connection_;
};

}  // namespace tela::odbc
