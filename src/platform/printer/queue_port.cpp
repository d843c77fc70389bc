#include "platform/printer/queue_port.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "platform/text/ascii.h"

namespace tela {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// A file without a name, which is gone when it is closed.
File scratch_file() {
  return File(std::tmpfile());
}

std::string first_line(std::FILE* file) {
  char buffer[512];
  std::rewind(file);
  std::string line(buffer, std::fread(buffer, 1, sizeof buffer, file));
  line.resize(std::min(line.find('\n'), line.size()));
  return line;
}

// Runs `lp -d QUEUE -o raw` on `input` without a shell. Gives the reason of its failure, or "".
std::string run_lp(const std::string& queue, std::FILE* input, std::FILE* messages) {
  std::string arguments[] = {"lp", "-d", queue, "-o", "raw"};
  char* argv[std::size(arguments) + 1] = {};
  std::transform(std::begin(arguments), std::end(arguments), argv,
                 [](std::string& argument) { return argument.data(); });

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(input), STDIN_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, fileno(messages), STDERR_FILENO);
  pid_t process = 0;
  const int error = posix_spawnp(&process, argv[0], &actions, nullptr, argv, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return "lp: " + std::generic_category().message(error);

  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return "lp: " + std::generic_category().message(errno);
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return "";
  const std::string words = first_line(messages);
  return words.empty() ? "lp failed without a word" : words;
}

class QueuePort : public PrinterPort {
 public:
  explicit QueuePort(std::string_view name) : name_(name) {}

  void write(std::string_view bytes) override { bill_ += bytes; }

  void close() override {
    const File input = scratch_file();
    const File messages = scratch_file();
    if (!input || !messages ||
        std::fwrite(bill_.data(), 1, bill_.size(), input.get()) != bill_.size() ||
        std::fflush(input.get()) != 0)
      refuse("no room for a temporary file");
    std::rewind(input.get());
    if (const std::string reason = run_lp(name_, input.get(), messages.get()); !reason.empty())
      refuse(reason);
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw PrinterError(PrinterError::Kind::cannot_open,
                       "The print queue \"" + name_ + "\" did not take the bill (" + reason + ").");
  }

  std::string name_;
  std::string bill_;
};

}  // namespace

bool is_queue_name(std::string_view name) {
  const auto belongs = [](char c) {
    return c > ' ' && c < 0x7F && std::string_view("/\\#'\"").find(c) == std::string_view::npos;
  };
  return !name.empty() && name.front() != '-' && std::all_of(name.begin(), name.end(), belongs);
}

std::unique_ptr<PrinterPort> open_queue_port(std::string_view name) {
  return std::make_unique<QueuePort>(name);
}

}  // namespace tela
