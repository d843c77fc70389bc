// Another program, started without a shell.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tela {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// A file without a name that holds `text`, read from its beginning; it is gone when it is closed.
/// Throws std::system_error.
File scratch_file(std::string_view text = "");

struct ProgramCall {
  std::vector<std::string> words;  ///< the program, a path or a name on the PATH, and its arguments
  std::FILE* input = nullptr;      ///< its standard input; nothing if there is none
  std::vector<std::string> environment = {};  ///< NAME=VALUE, ahead of this program's own
};

/// A program that runs in a session of its own, so that what it starts in turn ends with it. What
/// it prints is dropped, but for its words on standard error.
class ProgramRun {
 public:
  /// Throws std::system_error if the program cannot be started.
  explicit ProgramRun(const ProgramCall& call);
  /// Ends the program if it still runs.
  ~ProgramRun();
  ProgramRun(ProgramRun&& other) noexcept;
  ProgramRun& operator=(ProgramRun&&) = delete;

  /// Its exit code, minus the signal that ended it; nothing while it runs.
  std::optional<int> exit_code();

  /// The same, waiting for its end up to `limit`.
  std::optional<int> wait(std::chrono::milliseconds limit);

  /// Lets the program run on when this object is gone.
  void release() { id_ = 0; }

  /// The first line that it wrote on standard error.
  std::string words();

 private:
  void end();

  pid_t id_ = 0;
  std::optional<int> exit_code_;
  File errors_;
};

/// Where a program of that name is found on the PATH; empty if nowhere.
std::filesystem::path find_program(std::string_view name);

}  // namespace tela
