#include "platform/embedded/transaction.h"

#include <utility>

namespace tela::embedded {
namespace {

using Kind = DatabaseError::Kind;

/// For clean-up, where there is nobody to tell of a failure; SQLite then undoes the work later.
void run_quietly(Database& database, const char* sql) {
  sqlite3_exec(database.handle(), sql, nullptr, nullptr, nullptr);
}

}  // namespace

void Transaction::require_open() const {
  if (state_ == State::none) throw DatabaseError(Kind::other, "No transaction is active.");
}

void Transaction::require_standing() const {
  if (state_ == State::undone)
    throw DatabaseError(Kind::other, "The transaction was undone: " + undone_because_);
}

void Transaction::take_write_lock() {
  turns_.wait();
  database_.run("BEGIN IMMEDIATE");
  turns_.note_taken();
}

void Transaction::end(const char* sql) {
  database_.run(sql);
  turns_.note_released();
}

void Transaction::begin() {
  if (state_ != State::none) throw DatabaseError(Kind::other, "A transaction is already active.");
  state_ = State::begun;
}

void Transaction::enter(Reach reach) {
  if (state_ != State::begun) return;
  const bool to_write = reach == Reach::catalogue && !database_.is_read_only();
  to_write ? take_write_lock() : database_.run("BEGIN");
  state_ = State::entered;
}

void Transaction::commit() {
  require_open();
  const State state = std::exchange(state_, State::none);
  if (state == State::undone)
    throw DatabaseError(Kind::other, "Nothing is committed, the transaction was undone: " +
                                         std::exchange(undone_because_, {}));
  if (state != State::entered) return;
  try {
    end("COMMIT");
  } catch (const DatabaseError&) {
    if (database_.in_transaction()) run_quietly(database_, "ROLLBACK");
    turns_.note_released();
    throw;
  }
}

void Transaction::rollback() {
  require_open();
  if (std::exchange(state_, State::none) == State::entered) end("ROLLBACK");
}

void Transaction::note_failure(const std::string& reason) {
  if (state_ != State::entered || database_.in_transaction()) return;
  state_ = State::undone;
  undone_because_ = reason;
}

AtomicStep::AtomicStep(Transaction& transaction)
    : transaction_(transaction), nested_(transaction.database_.in_transaction()) {
  nested_ ? transaction_.database_.run("SAVEPOINT step") : transaction_.take_write_lock();
}

AtomicStep::~AtomicStep() {
  Database& database = transaction_.database_;
  if (kept_ || !database.in_transaction()) return;
  run_quietly(database, nested_ ? "ROLLBACK TO step; RELEASE step" : "ROLLBACK");
  if (!nested_) transaction_.turns_.note_released();
}

void AtomicStep::keep() {
  nested_ ? transaction_.database_.run("RELEASE step") : transaction_.end("COMMIT");
  kept_ = true;
}

}  // namespace tela::embedded
