// The client's transaction over SQLite's: begun late, with the least lock that serves, and never
// silently gone.
#pragma once

#include <string>
#include <vector>

#include "platform/embedded/sqlite_handles.h"
#include "platform/embedded/write_turns.h"

namespace tela::embedded {

/// What a statement is to the other programs: one that reads or writes the catalogue, or one that
/// changes or reads only this connection's temporary tables (what it writes into them may come from
/// the catalogue).
enum class Reach { catalogue, temporary };

class Transaction {
 public:
  explicit Transaction(Database& database) : database_(database) {}

  /// Takes no lock yet: the first statement decides which one.
  void begin();
  void commit();
  void rollback();
  bool is_open() const { return state_ != State::none; }

  /// Throws if the engine had to undo the open transaction, so that what was meant to be one whole
  /// is not half done. Called ahead of each statement, it also ends what an earlier failure left
  /// open.
  void require_standing();

  /// To be called before a statement runs. The first one that reaches the catalogue, if only by
  /// reading, takes the right to write at once: another program's commit between its reading and a
  /// later change would make the change impossible. Temporary tables are filled without it, so that
  /// a long run does not hold up the tills; docs/decisions/temporary_tables.md tells what happens
  /// when the catalogue is reached after them.
  void enter(Reach reach);

  /// Whether no other program can change the catalogue now.
  bool holds_write_lock() const { return state_ == State::writing; }

  /// To be called when a statement has created a temporary table.
  void note_created(const std::string& temporary_table);

  /// To be called when a statement has failed: notices what the engine undid with it.
  void note_failure(const std::string& reason);

 private:
  friend class AtomicStep;
  /// What of it SQLite has open: nothing yet, the temporary tables alone, everything.
  enum class State { none, begun, filling, writing, undone };

  void require_open() const;
  void enter_for_filling();
  void enter_for_writing();
  void drop_created();
  void take_write_lock();
  /// Ends what SQLite has open by "COMMIT" or "ROLLBACK".
  void end(const char* sql);
  void end_left_over();

  Database& database_;
  WriteTurns turns_;
  State state_ = State::none;
  std::string undone_because_;
  std::vector<std::string> created_;  ///< temporary tables, before the catalogue was reached
};

/// Undoes what is done in its scope unless it is kept: a part of the open transaction, else one of
/// its own, which reaches the catalogue.
class AtomicStep {
 public:
  explicit AtomicStep(Transaction& transaction);
  ~AtomicStep();
  AtomicStep(const AtomicStep&) = delete;
  AtomicStep& operator=(const AtomicStep&) = delete;

  void keep();

 private:
  Transaction& transaction_;
  bool nested_;
  bool kept_ = false;
};

}  // namespace tela::embedded
