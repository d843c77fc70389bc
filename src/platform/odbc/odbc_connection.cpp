#include "platform/odbc/odbc_connection.h"

#include <memory>
#include <optional>
#include <utility>

#include "platform/odbc/session.h"

namespace tela {
namespace {

using Kind = DatabaseError::Kind;

constexpr std::chrono::seconds kDefaultTimeout{30};

constexpr std::string_view kConnectionLost = "The connection to the server is lost.";
constexpr std::string_view kNothingStored =
    "The open transaction is gone; nothing of it is stored.";
constexpr std::string_view kPerhapsStored = "It is not known whether the transaction is stored.";

void add_sentence(std::string& message, std::string_view sentence) {
  message.append(message.ends_with('.') ? " " : ". ").append(sentence);
}

class OdbcConnection final : public Connection {
 public:
  OdbcConnection(std::string text, DriverText form) : text_(std::move(text)), form_(form) {}

  void open(std::string_view connection_string) override;
  void set_cursor_location(CursorLocation /*location*/) override {}
  void set_command_timeout(std::chrono::seconds timeout) override { timeout_ = timeout; }
  void set_keep_going(const KeepGoing& keep_going) override;
  RowSet execute(std::string_view sql) override;
  void read_each(std::string_view sql, const RowVisitor& visit) override;
  void begin_trans() override;
  void commit_trans() override;
  void rollback_trans() override;
  bool in_transaction() const override { return transaction_ != Transaction::none; }

 private:
  /// `gone`: the server dropped it, alone or with the connection; what was in it is not stored.
  enum class Transaction { none, open, gone };

  template <class Action>
  auto guarded(Action action, std::string_view link_lost = kNothingStored);
  void connect();
  void require_session();
  void require_transaction(const char* words) const;
  void require_not_gone() const;
  bool server_dropped_transaction();

  std::string text_;
  std::string catalogue_;
  DriverText form_;
  std::chrono::seconds timeout_ = kDefaultTimeout;
  KeepGoing keep_going_;
  std::unique_ptr<odbc::Session> session_;
  bool lost_ = false;
  Transaction transaction_ = Transaction::none;
  bool changed_ = false;  ///< a statement succeeded in the open transaction
};

void OdbcConnection::open(std::string_view connection_string) {
  if (session_) throw DatabaseError(Kind::other, "The connection is open already.");
  const odbc::ConnectionText asked(connection_string);
  catalogue_ = asked.value("Initial Catalog");
  transaction_ = Transaction::none;
  connect();
}

void OdbcConnection::connect() {
  session_ = std::make_unique<odbc::Session>(odbc::with_catalogue(text_, catalogue_), form_);
  session_->set_keep_going(keep_going_);
  lost_ = false;
}

void OdbcConnection::set_keep_going(const KeepGoing& keep_going) {
  keep_going_ = keep_going;
  if (session_) session_->set_keep_going(keep_going_);
}

/// A lost connection is made anew by the next statement, so that one action fails and not the day.
void OdbcConnection::require_session() {
  if (session_) return;
  if (!lost_) throw DatabaseError(Kind::connection, "The connection is not open.");
  connect();
}

void OdbcConnection::require_transaction(const char* words) const {
  if (transaction_ == Transaction::none) throw DatabaseError(Kind::other, words);
}

void OdbcConnection::require_not_gone() const {
  if (transaction_ == Transaction::gone)
    throw DatabaseError(Kind::other, std::string(kNothingStored));
}

/// Asked after a failure alone: the server ends the transaction by itself on a deadlock and on some
/// errors of values, and what follows would then be stored statement by statement.
bool OdbcConnection::server_dropped_transaction() {
  if (!changed_) return false;
  try {
    const RowSet rows = session_->run("select @@trancount", timeout_);
    return rows.rows.size() == 1 && rows.rows[0][0] == Value(std::int64_t{0});
  } catch (const DatabaseError&) {
    return false;  // no SQL Server, or no answer: the transaction's end will tell
  }
}

/// Runs an action on the session. A failure that ended the connection or the transaction says so;
/// `link_lost` are the words for a transaction that went with the connection.
template <class Action>
auto OdbcConnection::guarded(Action action, std::string_view link_lost) {
  require_session();
  try {
    return action();
  } catch (const DatabaseError& error) {
    std::string message = error.what();
    lost_ = error.kind() == Kind::connection || !session_->alive();
    if (lost_) session_.reset();
    if (lost_ && error.kind() != Kind::connection) add_sentence(message, kConnectionLost);
    if (transaction_ == Transaction::open && (lost_ || server_dropped_transaction())) {
      transaction_ = Transaction::gone;
      add_sentence(message, lost_ ? link_lost : kNothingStored);
    }
    const bool slow = error.kind() == Kind::busy;
    throw DatabaseError(lost_ && !slow ? Kind::connection : error.kind(), message,
                        error.native_code());
  }
}

RowSet OdbcConnection::execute(std::string_view sql) {
  require_not_gone();
  return guarded([&] {
    RowSet rows = session_->run(sql, timeout_);
    changed_ = true;
    return rows;
  });
}

void OdbcConnection::read_each(std::string_view sql, const RowVisitor& visit) {
  require_not_gone();
  guarded([&] {
    session_->read_each(sql, timeout_, visit);
    changed_ = true;
  });
}

void OdbcConnection::begin_trans() {
  if (in_transaction()) throw DatabaseError(Kind::other, "A transaction is open already.");
  guarded([&] { session_->begin(); });
  transaction_ = Transaction::open;
  changed_ = false;
}

void OdbcConnection::commit_trans() {
  require_transaction("There is no transaction to commit.");
  require_not_gone();
  guarded([&] { session_->commit(); }, kPerhapsStored);
  transaction_ = Transaction::none;
}

void OdbcConnection::rollback_trans() {
  require_transaction("There is no transaction to roll back.");
  const bool undone = std::exchange(transaction_, Transaction::none) == Transaction::gone;
  if (undone && !session_) return;
  guarded([&] { session_->roll_back(); });
}

}  // namespace

std::unique_ptr<Connection> make_odbc_connection(std::string connection_string, DriverText text) {
  return std::make_unique<OdbcConnection>(std::move(connection_string), text);
}

}  // namespace tela
