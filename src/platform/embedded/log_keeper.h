// Keeps the write-ahead log short without the risk that several programs' checkpoints bring.
//
// In SQLite before 3.51.3 a checkpoint that starts while another program's commit resets the log
// can mark frames as copied that never were, and committed rows are lost. So no connection of this
// program checkpoints by itself; a checkpoint runs on a second connection while the first holds the
// right to write, which shuts out every commit and every other such checkpoint.
// docs/decisions/journal_mode.md tells the whole rule.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// Must stay where it is while the connection that it watches is open.
class LogKeeper {
 public:
  explicit LogKeeper(std::filesystem::path file) : file_(std::move(file)) {}
  LogKeeper(const LogKeeper&) = delete;
  LogKeeper& operator=(const LogKeeper&) = delete;

  /// Switches a connection's own checkpoints off and counts what it commits.
  void watch(Database& database);

  /// Whether a checkpoint is worth its while: this connection's last commit found the log long, or
  /// the log's file, which other programs fill too, has been long for a while.
  bool is_due();

  /// Copies the log into the file, as far as readers allow. Takes the right to write without
  /// waiting; if a till has it, or the copying fails, the log stays for the next time, for nothing
  /// in it is lost. `writer` must be outside a transaction and must not wait for locks.
  void checkpoint(Database& writer);

 private:
  static int note_commit(void* self, sqlite3* database, const char* name, int log_pages);

  std::filesystem::path file_;
  std::optional<Database> checkpointer_;
  int log_pages_ = 0;
  std::chrono::steady_clock::time_point last_try_{};
};

}  // namespace tela::embedded
