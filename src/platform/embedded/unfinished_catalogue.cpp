#include "platform/embedded/unfinished_catalogue.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <system_error>
#include <utility>

#include "platform/database/database_client.h"

namespace tela::embedded {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view mark = ".unfinished-";
// So long after it has made its folder every program has locked it.
constexpr std::chrono::minutes until_locked{1};

/// A failure of the system's last call; `errno` says which.
DatabaseError system_failure(const std::string& what) {
  const int number = errno;
  return {DatabaseError::Kind::storage, what + ": " + std::generic_category().message(number) + ".",
          number};
}

std::string in_quotes(const fs::path& path) {
  return "'" + path.string() + "'";
}

DatabaseError name_taken(const fs::path& file) {
  return {DatabaseError::Kind::other,
          "The catalogue file " + in_quotes(file) + " is there already and is left as it is."};
}

void require_free(const fs::path& file) {
  std::error_code none;
  if (fs::exists(fs::symlink_status(file, none))) throw name_taken(file);
  for (const char* journal : {"-wal", "-journal"}) {
    const fs::path left = file.string() + journal;
    if (const auto bytes = fs::file_size(left, none); !none && bytes > 0)
      throw DatabaseError(DatabaseError::Kind::other,
                          "The file " + in_quotes(left) +
                              " belongs to a former catalogue and may hold bills of it. Move it "
                              "away, then try again.");
  }
}

int open_to_read(const fs::path& path) {
  return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

fs::path folder_of(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : ".";
}

/// False if another program holds the lock.
bool lock(const FileDescriptor& folder) {
  return flock(folder.number(), LOCK_EX | LOCK_NB) == 0;
}

/// Removes what killed programs left of this catalogue.
void remove_left_folders(const fs::path& file) {
  const std::string start = file.filename().string() + std::string(mark);
  const auto latest = fs::file_time_type::clock::now() - until_locked;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder_of(file), ignored)) {
    if (!entry.path().filename().string().starts_with(start)) continue;
    const FileDescriptor folder(open_to_read(entry.path()));
    if (entry.last_write_time(ignored) < latest && lock(folder))
      fs::remove_all(entry.path(), ignored);
  }
}

void write_to_disk(const fs::path& path) {
  const FileDescriptor opened(open_to_read(path));
  if (opened.number() >= 0 && fsync(opened.number()) == 0) return;
  throw system_failure(in_quotes(path) + " cannot be written to the disk");
}

/// A renaming that does not replace; a second name where the file system knows no such renaming.
void give_name(const fs::path& made, const fs::path& file) {
  if (renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0) return;
  const bool is_unknown = errno == EINVAL || errno == ENOSYS;
  if (is_unknown && link(made.c_str(), file.c_str()) == 0) return;
  if (errno == EEXIST) throw name_taken(file);
  throw system_failure("The finished catalogue cannot get its name " + in_quotes(file));
}

}  // namespace

FileDescriptor::~FileDescriptor() {
  if (number_ >= 0) close(number_);
}

UnfinishedCatalogue::UnfinishedCatalogue(fs::path file) : file_(std::move(file)) {
  require_free(file_);
  remove_left_folders(file_);
  std::string name = file_.string() + std::string(mark) + "XXXXXX";
  if (mkdtemp(name.data()) == nullptr)
    throw system_failure("No catalogue can be made in " + in_quotes(folder_of(file_)));
  folder_ = name;
  lock_.emplace(open_to_read(folder_));
  lock(*lock_);
}

UnfinishedCatalogue::~UnfinishedCatalogue() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void UnfinishedCatalogue::publish() const {
  write_to_disk(path());
  require_free(file_);
  give_name(path(), file_);
  write_to_disk(folder_of(file_));
}

}  // namespace tela::embedded
