// A disk under SQLite that fills up.
#pragma once

#include <sqlite3.h>

#include <map>

namespace tela::testing {

/// Every file that SQLite opens while this object stands lies on the disk. One at a time.
class FailingDisk {
 public:
  /// Full after so many writes.
  explicit FailingDisk(int writes) : vfs_(*real_) {
    left_ = writes;
    vfs_.zName = "failing disk";
    vfs_.xOpen = &open;
    sqlite3_vfs_register(&vfs_, 1);
  }
  ~FailingDisk() { sqlite3_vfs_unregister(&vfs_); }
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  bool was_full() const { return left_ < 0; }

 private:
  static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* out) {
    const int code = real_->xOpen(vfs, name, file, flags, out);
    if (file->pMethods == nullptr) return code;
    real_write_ = file->pMethods->xWrite;
    sqlite3_io_methods& methods =
        methods_.try_emplace(file->pMethods, *file->pMethods).first->second;
    methods.xWrite = &write;
    file->pMethods = &methods;
    return code;
  }

  static int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 position) {
    return --left_ < 0 ? SQLITE_FULL : real_write_(file, bytes, count, position);
  }

  // SQLite calls plain functions, and its kinds of file share one that writes.
  static inline sqlite3_vfs* const real_ = sqlite3_vfs_find(nullptr);
  static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods_;
  static inline int (*real_write_)(sqlite3_file*, const void*, int, sqlite3_int64) = nullptr;
  static inline int left_ = 0;

  sqlite3_vfs vfs_;
};

}  // namespace tela::testing
