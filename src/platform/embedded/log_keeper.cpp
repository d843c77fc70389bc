#include "platform/embedded/log_keeper.h"

#include <system_error>

namespace tela::embedded {
namespace {

// At 4 KiB a page about 4 MB: a day of a shop's bills, and copied within a moment.
constexpr int long_log_pages = 1000;
constexpr std::uintmax_t long_log_bytes = 4u << 20;
// The file keeps its length when the log starts over, so its length alone says little.
constexpr std::chrono::seconds between_looks{30};

}  // namespace

void LogKeeper::watch(Database& database) {
  sqlite3_wal_autocheckpoint(database.handle(), 0);
  sqlite3_wal_hook(database.handle(), &LogKeeper::note_commit, this);
}

int LogKeeper::note_commit(void* self, sqlite3*, const char*, int log_pages) {
  static_cast<LogKeeper*>(self)->log_pages_ = log_pages;
  return SQLITE_OK;
}

bool LogKeeper::is_due() {
  if (log_pages_ >= long_log_pages) return true;
  const auto now = std::chrono::steady_clock::now();
  if (now - last_try_ < between_looks) return false;
  last_try_ = now;
  std::error_code error;
  const auto bytes = std::filesystem::file_size(file_.string() + "-wal", error);
  return !error && bytes >= long_log_bytes;
}

void LogKeeper::checkpoint(Database& writer) {
  last_try_ = std::chrono::steady_clock::now();
  log_pages_ = 0;
  if (writer.is_read_only()) return;
  try {
    if (!checkpointer_) {
      checkpointer_.emplace(file_, SQLITE_OPEN_READWRITE);
      sqlite3_wal_autocheckpoint(checkpointer_->handle(), 0);
      // A checkpoint is all that it does; the log may only start over once the file is safe.
      checkpointer_->run("PRAGMA synchronous=FULL");
    }
    writer.run("BEGIN IMMEDIATE");
    sqlite3_wal_checkpoint_v2(checkpointer_->handle(), "main", SQLITE_CHECKPOINT_PASSIVE, nullptr,
                              nullptr);
    writer.run("ROLLBACK");
  } catch (const DatabaseError&) {
    // A till is writing at this moment, or the disk is full: there will be another time.
  }
}

}  // namespace tela::embedded
