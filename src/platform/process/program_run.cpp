#include "platform/process/program_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>

namespace tela {
namespace {

[[noreturn]] void refuse(int error, const std::string& what) {
  throw std::system_error(error, std::generic_category(), what);
}

// Pointers to the texts, with a null behind them, as the system takes them.
std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> all;
  all.reserve(texts.size() + 1);
  for (std::string& text : texts) all.push_back(text.data());
  all.push_back(nullptr);
  return all;
}

// The first setting of a name counts.
std::vector<std::string> environment_with(std::vector<std::string> ahead) {
  const std::size_t count = ahead.size();
  for (char** entry = environ; *entry; ++entry) {
    const std::string own = *entry;
    const std::string name = own.substr(0, own.find('=') + 1);
    const bool replaced =
        std::any_of(ahead.begin(), ahead.begin() + static_cast<std::ptrdiff_t>(count),
                    [&](const std::string& setting) { return setting.starts_with(name); });
    if (!replaced) ahead.push_back(own);
  }
  return ahead;
}

class SpawnSettings {
 public:
  SpawnSettings(std::FILE* input, std::FILE* errors) {
    posix_spawn_file_actions_init(&files_);
    if (input)
      posix_spawn_file_actions_adddup2(&files_, fileno(input), STDIN_FILENO);
    else
      posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&files_, fileno(errors), STDERR_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID);
  }
  ~SpawnSettings() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&files_);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  const posix_spawn_file_actions_t* files() const { return &files_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

int code_of(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

File scratch_file(std::string_view text) {
  File file(std::tmpfile());
  if (!file || std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() ||
      std::fflush(file.get()) != 0)
    refuse(errno, "no room for a temporary file");
  std::rewind(file.get());
  return file;
}

ProgramRun::ProgramRun(const ProgramCall& call) : errors_(scratch_file()) {
  std::vector<std::string> words = call.words;
  std::vector<std::string> environment = environment_with(call.environment);
  const SpawnSettings settings(call.input, errors_.get());
  const int error =
      posix_spawnp(&id_, words.front().c_str(), settings.files(), settings.attributes(),
                   pointers(words).data(), pointers(environment).data());
  if (error != 0) refuse(error, words.front());
}

ProgramRun::~ProgramRun() {
  end();
}

ProgramRun::ProgramRun(ProgramRun&& other) noexcept
    : id_(std::exchange(other.id_, 0)),
      exit_code_(other.exit_code_),
      errors_(std::move(other.errors_)) {}

std::optional<int> ProgramRun::exit_code() {
  if (exit_code_ || id_ == 0) return exit_code_;
  int status = 0;
  const pid_t ended = waitpid(id_, &status, WNOHANG);
  if (ended == id_) exit_code_ = code_of(status);
  return exit_code_;
}

std::optional<int> ProgramRun::wait(std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  auto pause = std::chrono::milliseconds(1);
  while (!exit_code() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(pause);
    pause = std::min(2 * pause, std::chrono::milliseconds(20));
  }
  return exit_code();
}

std::string ProgramRun::words() {
  char buffer[512];
  std::rewind(errors_.get());
  std::string line(buffer, std::fread(buffer, 1, sizeof buffer, errors_.get()));
  line.resize(std::min(line.find('\n'), line.size()));
  return line;
}

// The group holds all that it started, and outlives it.
void ProgramRun::end() {
  if (id_ == 0) return;
  const bool running = !exit_code();
  kill(-id_, SIGKILL);
  while (running && waitpid(id_, nullptr, 0) < 0 && errno == EINTR) continue;
}

std::filesystem::path find_program(std::string_view name) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "");
  for (std::string folder; std::getline(folders, folder, ':');) {
    auto file = std::filesystem::path(folder) / name;
    if (access(file.c_str(), X_OK) == 0 && std::filesystem::is_regular_file(file)) return file;
  }
  return {};
}

}  // namespace tela
