#include "processes/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace tela::testing {
namespace {

struct Pipe {
  int read = -1;
  int write = -1;
};

/// Closed in every child but for the end that is made its standard input or output.
Pipe make_pipe() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
  return {ends[0], ends[1]};
}

void close_end(int& end) {
  if (end >= 0) close(end);
  end = -1;
}

}  // namespace

ChildProcess::ChildProcess(std::vector<std::string> words) {
  Pipe in = make_pipe();
  Pipe out = make_pipe();
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.read, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out.write, STDOUT_FILENO);
  const int failed = posix_spawn(&id_, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close_end(in.read);
  close_end(out.write);
  input_ = in.write;
  output_ = out.read;
  if (failed != 0) throw std::runtime_error("cannot start " + words[0]);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : id_(std::exchange(other.id_, -1)),
      input_(std::exchange(other.input_, -1)),
      output_(std::exchange(other.output_, -1)) {}

ChildProcess::~ChildProcess() {
  if (id_ > 0) {
    kill();
    wait();
  }
  close_end(input_);
  close_end(output_);
}

void ChildProcess::end_input() {
  close_end(input_);
}

void ChildProcess::kill() {
  ::kill(id_, SIGKILL);
}

void ChildProcess::wait_for_output() const {
  pollfd output{output_, POLLIN, 0};
  while (poll(&output, 1, -1) < 0 && errno == EINTR) continue;
}

int ChildProcess::wait() {
  int status = 0;
  waitpid(std::exchange(id_, -1), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

std::string ChildProcess::output() {
  std::string text;
  char buffer[4096];
  for (ssize_t n; (n = read(output_, buffer, sizeof buffer)) > 0;)
    text.append(buffer, static_cast<std::size_t>(n));
  return text;
}

}  // namespace tela::testing
