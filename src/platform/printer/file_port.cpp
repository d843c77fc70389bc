#include "platform/printer/file_port.h"

#include <fcntl.h>
#include <pthread.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <system_error>
#include <utility>

namespace tela {
namespace {

// While it lives, writing into a pipe without a reader is an error and not the end of the process.
class BrokenPipeIsAnError {
 public:
  BrokenPipeIsAnError() {
    sigemptyset(&broken_pipe_);
    sigaddset(&broken_pipe_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &broken_pipe_, &before_);
  }
  BrokenPipeIsAnError(const BrokenPipeIsAnError&) = delete;
  BrokenPipeIsAnError& operator=(const BrokenPipeIsAnError&) = delete;
  ~BrokenPipeIsAnError() {
    sigset_t pending;
    sigpending(&pending);
    int signal = 0;
    if (sigismember(&pending, SIGPIPE) == 1) sigwait(&broken_pipe_, &signal);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  sigset_t broken_pipe_;
  sigset_t before_;
};

class FilePort : public PrinterPort {
 public:
  FilePort(std::filesystem::path path, int descriptor)
      : path_(std::move(path)), descriptor_(descriptor) {}
  FilePort(const FilePort&) = delete;
  FilePort& operator=(const FilePort&) = delete;
  ~FilePort() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  void write(std::string_view bytes) override {
    const BrokenPipeIsAnError guard;
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno != EINTR) fail(errno);
      if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void close() override {
    if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) fail(errno);
  }

 private:
  [[noreturn]] void fail(int error) const {
    const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
    const std::string reason = full ? "the disk is full" : std::generic_category().message(error);
    throw PrinterError(
        full ? PrinterError::Kind::storage_full : PrinterError::Kind::failed,
        "The bill is not complete on the printer port " + path_.string() + ": " + reason + ".");
  }

  std::filesystem::path path_;
  int descriptor_;
};

// A terminal line would otherwise turn each line feed into a carriage return and a line feed.
void pass_bytes_unchanged(int descriptor) {
  termios settings{};
  if (tcgetattr(descriptor, &settings) != 0) return;
  settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
  tcsetattr(descriptor, TCSANOW, &settings);
}

void wait_when_busy(int descriptor) {
  fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
}

}  // namespace

std::unique_ptr<PrinterPort> open_file_port(const std::filesystem::path& path,
                                            IfMissing if_missing) {
  // Non-blocking for the opening alone: a pipe without a reader or a line without a carrier would
  // hold the program up for ever.
  const int flags = O_WRONLY | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC |
                    (if_missing == IfMissing::create ? O_CREAT : 0);
  const int descriptor = ::open(path.c_str(), flags, 0666);
  if (descriptor < 0)
    throw PrinterError(PrinterError::Kind::cannot_open,
                       "The printer port " + path.string() +
                           " cannot be opened: " + std::generic_category().message(errno) + ".");
  auto port = std::make_unique<FilePort>(path, descriptor);
  wait_when_busy(descriptor);
  pass_bytes_unchanged(descriptor);
  return port;
}

}  // namespace tela
