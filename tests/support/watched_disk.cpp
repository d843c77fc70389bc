#include "support/watched_disk.h"

#include <map>
#include <mutex>

namespace tela::testing {
namespace {

using Kind = DiskCall::Kind;

struct OpenFile {
  const sqlite3_io_methods* methods;
  std::string path;
};

// SQLite calls plain functions, so what they know stands here.
struct Watch {
  sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
  std::mutex mutex;
  WatchedDisk::Hook hook;
  std::map<const sqlite3_file*, OpenFile> files;
  std::map<const sqlite3_io_methods*, sqlite3_io_methods> watched;  ///< by the real ones
};

Watch& watch() {
  static Watch the_watch;
  return the_watch;
}

int ask(Kind kind, const char* path, sqlite3_file* file) {
  const std::lock_guard lock(watch().mutex);
  return watch().hook({kind, path != nullptr ? path : "", file});
}

const sqlite3_io_methods& real_methods(const sqlite3_file* file) {
  const std::lock_guard lock(watch().mutex);
  return *watch().files.at(file).methods;
}

// Asks, and then calls the real method. One function for each kind of call.
template <Kind kind, auto method, class... Arguments>
int asked(sqlite3_file* file, Arguments... arguments) {
  std::string path;
  {
    const std::lock_guard lock(watch().mutex);
    path = watch().files.at(file).path;
  }
  const int code = ask(kind, path.c_str(), file);
  return code != SQLITE_OK ? code : (real_methods(file).*method)(file, arguments...);
}

int close(sqlite3_file* file) {
  const auto* methods = &real_methods(file);
  {
    const std::lock_guard lock(watch().mutex);
    watch().files.erase(file);
  }
  return methods->xClose(file);
}

using Methods = sqlite3_io_methods;

const Methods* watched_methods(const Methods& real) {
  Methods& methods = watch().watched.try_emplace(&real, real).first->second;
  methods.xClose = &close;
  methods.xRead = &asked<Kind::read, &Methods::xRead, void*, int, sqlite3_int64>;
  methods.xWrite = &asked<Kind::write, &Methods::xWrite, const void*, int, sqlite3_int64>;
  methods.xTruncate = &asked<Kind::truncate, &Methods::xTruncate, sqlite3_int64>;
  methods.xSync = &asked<Kind::sync, &Methods::xSync, int>;
  methods.xLock = &asked<Kind::lock, &Methods::xLock, int>;
  // A lock of the log that is given back is none to fail.
  methods.xShmLock = [](sqlite3_file* file, int from, int count, int flags) {
    return (flags & SQLITE_SHM_UNLOCK) != 0
               ? real_methods(file).xShmLock(file, from, count, flags)
               : asked<Kind::lock, &Methods::xShmLock>(file, from, count, flags);
  };
  // What is read through the mapping is read without a call.
  methods.iVersion = 2;
  return &methods;
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out) {
  file->pMethods = nullptr;
  if (const int code = ask(Kind::open, name, nullptr); code != SQLITE_OK) return code;
  const int code = watch().real->xOpen(watch().real, name, file, flags, out);
  if (file->pMethods == nullptr) return code;
  const std::lock_guard lock(watch().mutex);
  watch().files[file] = {file->pMethods, name != nullptr ? name : ""};
  file->pMethods = watched_methods(*file->pMethods);
  return code;
}

int remove(sqlite3_vfs*, const char* name, int sync_folder) {
  const int code = ask(Kind::remove, name, nullptr);
  return code != SQLITE_OK ? code : watch().real->xDelete(watch().real, name, sync_folder);
}

}  // namespace

WatchedDisk::WatchedDisk(Hook hook) : vfs_(*watch().real) {
  watch().hook = std::move(hook);
  vfs_.zName = "watched disk";
  vfs_.xOpen = &open;
  vfs_.xDelete = &remove;
  take_over();
}

void WatchedDisk::take_over() {
  sqlite3_vfs_register(&vfs_, 1);
}

WatchedDisk::~WatchedDisk() {
  sqlite3_vfs_unregister(&vfs_);
}

}  // namespace tela::testing
