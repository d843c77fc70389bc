// The disk under SQLite: a test is asked ahead of each call and may let it fail.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <string>

namespace tela::testing {

/// A call that SQLite is about to make.
struct DiskCall {
  enum class Kind { open, read, write, truncate, sync, lock, remove };

  Kind kind;
  std::string path;              ///< of the file; empty for a temporary one
  sqlite3_file* file = nullptr;  ///< none of open and remove

  /// Whether the disk is another afterwards.
  bool changes_disk() const {
    return kind == Kind::write || kind == Kind::truncate || kind == Kind::sync ||
           kind == Kind::remove;
  }
};

/// Every file that SQLite opens while this object stands lies on the disk. One at a time; it
/// outlives the connections.
class WatchedDisk {
 public:
  /// SQLITE_OK lets the call through; any other result code stands for it. Asked by one thread at a
  /// time.
  using Hook = std::function<int(const DiskCall& call)>;

  explicit WatchedDisk(Hook hook);
  ~WatchedDisk();
  WatchedDisk(const WatchedDisk&) = delete;
  WatchedDisk& operator=(const WatchedDisk&) = delete;

  /// Makes it the disk of new connections again, after SQLite was shut down and forgot it.
  void take_over();

 private:
  sqlite3_vfs vfs_;
};

}  // namespace tela::testing
