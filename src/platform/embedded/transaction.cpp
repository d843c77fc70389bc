#include "platform/embedded/transaction.h"

#include <utility>

#include "platform/tsql/engine_names.h"

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

// A roll-back fails where there is no memory for it. The next statement does it, since the lock on
// the file would keep the tills from billing until the program ends.
void Transaction::end_left_over() {
  if (state_ == State::none && database_.in_transaction()) end("ROLLBACK");
}

void Transaction::require_standing() {
  end_left_over();
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
  end_left_over();
  state_ = State::begun;
}

void Transaction::enter(Reach reach) {
  if (state_ != State::begun && state_ != State::filling) return;
  const bool to_write = reach == Reach::catalogue && !database_.is_read_only();
  to_write ? enter_for_writing() : enter_for_filling();
}

void Transaction::enter_for_filling() {
  if (state_ == State::filling) return;
  database_.run("BEGIN");
  state_ = State::filling;
}

// SQLite lets go of what was read for the temporary tables only together with their changes.
void Transaction::enter_for_writing() {
  if (state_ == State::filling) {
    database_.run("COMMIT");
    state_ = State::begun;
  }
  take_write_lock();
  state_ = State::writing;
}

void Transaction::note_created(const std::string& temporary_table) {
  if (state_ == State::filling) created_.push_back(temporary_table);
}

void Transaction::commit() {
  require_open();
  const State state = std::exchange(state_, State::none);
  if (state == State::undone) {
    drop_created();
    throw DatabaseError(Kind::other, "Nothing is committed, the transaction was undone: " +
                                         std::exchange(undone_because_, {}));
  }
  try {
    if (state != State::begun) end("COMMIT");
    created_.clear();
  } catch (const DatabaseError&) {
    if (database_.in_transaction()) run_quietly(database_, "ROLLBACK");
    turns_.note_released();
    drop_created();
    throw;
  }
}

void Transaction::rollback() {
  require_open();
  const State state = std::exchange(state_, State::none);
  if (state == State::filling) created_.clear();  // SQLite undoes them
  if (state == State::filling || state == State::writing) end("ROLLBACK");
  drop_created();
}

void Transaction::drop_created() {
  for (const std::string& table : std::exchange(created_, {}))
    run_quietly(database_, ("DROP TABLE IF EXISTS temp." + tsql::quoted_name(table)).c_str());
}

void Transaction::note_failure(const std::string& reason) {
  if (state_ != State::filling && state_ != State::writing) return;
  if (database_.in_transaction()) return;
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
