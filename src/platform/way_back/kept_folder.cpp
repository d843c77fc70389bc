#include "platform/way_back/kept_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <map>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/way_back/kept_contents.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, int error) {
  const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
  throw std::runtime_error(
      "Nothing is changed, since the old rows could not be kept in " + path.string() + ": " +
      (full ? "the disk is full" : std::generic_category().message(error)) + ".");
}

/// An open file or folder.
class Descriptor {
 public:
  Descriptor(fs::path path, int flags)
      : path_(std::move(path)), number_(::open(path_.c_str(), flags | O_CLOEXEC, 0666)) {
    if (number_ < 0) fail(path_, errno);
  }
  Descriptor(Descriptor&& other) noexcept
      : path_(std::move(other.path_)), number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }

  void write(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t written = ::write(number_, text.data(), text.size());
      if (written < 0 && errno != EINTR) fail(path_, errno);
      if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  void sync() const {
    if (::fsync(number_) != 0) fail(path_, errno);
  }
  /// Holds off whoever locks the same; lasts as long as the descriptor.
  void lock() const { ::flock(number_, LOCK_EX); }
  bool is_locked_elsewhere() const { return ::flock(number_, LOCK_EX | LOCK_NB) != 0; }

 private:
  fs::path path_;
  int number_;
};

Descriptor open_folder(const fs::path& folder) {
  return {folder, O_RDONLY | O_DIRECTORY};
}

void make_folder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) fail(folder, error.value());
}

/// Makes what was renamed in a folder, or added to it, survive a power cut.
void sync_folder(const fs::path& folder) {
  open_folder(folder).sync();
}

bool is_abandoned(const fs::path& folder) {
  return folder.extension() == unfinished_kept_rows && !open_folder(folder).is_locked_elsewhere();
}

std::vector<fs::path> entries_of(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
    if (it->is_directory(error)) entries.push_back(it->path());
  return entries;
}

/// Removes what killed programs left. To be called under the lock of `folder`.
void remove_abandoned(const fs::path& folder) {
  std::error_code ignored;
  for (const fs::path& action : entries_of(folder)) {
    if (is_abandoned(action)) fs::remove_all(action, ignored);
    for (const fs::path& part : entries_of(action))
      if (action.extension() != unfinished_kept_rows && is_abandoned(part))
        fs::remove_all(part, ignored);
  }
}

std::string moment() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d_%H-%M-%S", &local);
  return {text.data(), length};
}

fs::path with_mark(const fs::path& path) {
  return path.string() + unfinished_kept_rows;
}

class KeptFolder : public KeptRows {
 public:
  KeptFolder(fs::path folder, std::string_view screen)
      : folder_(std::move(folder)), screen_(screen) {}
  KeptFolder(const KeptFolder&) = delete;
  KeptFolder& operator=(const KeptFolder&) = delete;
  ~KeptFolder() override { discard(); }

  void append(std::string_view file, std::string_view text) override {
    if (being_made_.empty()) begin();
    auto found = files_.find(file);
    if (found == files_.end())
      found = files_
                  .emplace(std::string(file),
                           Descriptor(part_folder() / file, O_WRONLY | O_CREAT | O_EXCL))
                  .first;
    found->second.write(text);
  }

  void publish() override {
    if (being_made_.empty()) return;
    for (const auto& [name, file] : files_) file.sync();
    files_.clear();
    sync_folder(part_folder());
    if (parts_ == 0) sync_folder(being_made_);
    const fs::path published = parts_ == 0 ? action_ : part_of_action();
    if (::rename(being_made_.c_str(), published.c_str()) != 0) fail(published, errno);
    sync_folder(published.parent_path());
    being_made_.clear();
    lock_.clear();
    ++parts_;
  }

  void discard() noexcept override {
    files_.clear();
    if (being_made_.empty()) return;
    std::error_code ignored;
    fs::remove_all(being_made_, ignored);
    being_made_.clear();
    lock_.clear();
  }

 private:
  /// Under the lock of the folder that all actions share, so that no other program takes the same
  /// name, nor what has just been made for something abandoned.
  void begin() {
    make_folder(folder_);
    const Descriptor all = open_folder(folder_);
    all.lock();
    remove_abandoned(folder_);
    if (parts_ == 0) choose_name();
    being_made_ = with_mark(parts_ == 0 ? action_ : part_of_action());
    make_folder(part_folder());
    lock_.push_back(open_folder(being_made_));
    lock_.back().lock();
    sync_folder(folder_.parent_path());
  }

  void choose_name() {
    const fs::path wanted = folder_ / (moment() + '_' + screen_);
    action_ = wanted;
    for (int count = 2; fs::exists(action_) || fs::exists(with_mark(action_)); ++count)
      action_ = wanted.string() + '_' + std::to_string(count);
  }

  fs::path part_of_action() const { return action_ / std::to_string(parts_ + 1); }
  /// Where the files of the part that is being made lie.
  fs::path part_folder() const { return parts_ == 0 ? being_made_ / "1" : being_made_; }

  fs::path folder_;
  std::string screen_;
  fs::path action_;               ///< the folder of this action, once its name is chosen
  fs::path being_made_;           ///< what is renamed when it is whole; empty between two parts
  std::vector<Descriptor> lock_;  ///< tells other programs that being_made_ is not abandoned
  std::map<std::string, Descriptor, std::less<>> files_;
  int parts_ = 0;  ///< how many are published
};

}  // namespace

std::unique_ptr<KeptRows> keep_in_folder(const fs::path& folder, std::string_view screen) {
  return std::make_unique<KeptFolder>(folder, screen);
}

}  // namespace tela
