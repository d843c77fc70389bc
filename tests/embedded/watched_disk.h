// The disk under SQLite: it may fill up, and it counts how often something was made safe on it.
#pragma once

#include <sqlite3.h>

#include <limits>
#include <map>

namespace tela::testing {

/// Every file that SQLite opens while this object stands lies on the disk. One at a time; it
/// outlives the connections.
class WatchedDisk {
 public:
  /// Full after so many writes.
  explicit WatchedDisk(int writes = std::numeric_limits<int>::max()) : vfs_(*real_) {
    writes_left_ = writes;
    syncs_ = 0;
    vfs_.zName = "watched disk";
    vfs_.xOpen = &open;
    sqlite3_vfs_register(&vfs_, 1);
  }
  ~WatchedDisk() { sqlite3_vfs_unregister(&vfs_); }
  WatchedDisk(const WatchedDisk&) = delete;
  WatchedDisk& operator=(const WatchedDisk&) = delete;

  bool was_full() const { return writes_left_ < 0; }
  /// How often SQLite has waited until a file was on the disk.
  int syncs() const { return syncs_; }

 private:
  static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* out) {
    const int code = real_->xOpen(vfs, name, file, flags, out);
    if (file->pMethods == nullptr) return code;
    real_write_ = file->pMethods->xWrite;
    real_sync_ = file->pMethods->xSync;
    sqlite3_io_methods& methods =
        methods_.try_emplace(file->pMethods, *file->pMethods).first->second;
    methods.xWrite = &write;
    methods.xSync = &sync;
    file->pMethods = &methods;
    return code;
  }

  static int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 position) {
    return --writes_left_ < 0 ? SQLITE_FULL : real_write_(file, bytes, count, position);
  }

  static int sync(sqlite3_file* file, int flags) {
    ++syncs_;
    return real_sync_(file, flags);
  }

  // SQLite calls plain functions, and its kinds of file share those that write and sync.
  static inline sqlite3_vfs* const real_ = sqlite3_vfs_find(nullptr);
  static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods_;
  static inline int (*real_write_)(sqlite3_file*, const void*, int, sqlite3_int64) = nullptr;
  static inline int (*real_sync_)(sqlite3_file*, int) = nullptr;
  static inline int writes_left_ = 0;
  static inline int syncs_ = 0;

  sqlite3_vfs vfs_;
};

}  // namespace tela::testing
