// A worker process that the test starts, hears and ends.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tela::testing {

class ChildProcess {
 public:
  explicit ChildProcess(std::vector<std::string> words);
  /// Kills it if it still runs.
  ~ChildProcess();
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&&) = delete;

  /// Ends its standard input, which asks it to come to its end.
  void end_input();
  void kill();
  /// Waits until it has printed something, or has ended.
  void wait_for_output() const;
  /// Waits for its end; its exit code, or minus the signal that ended it.
  int wait();
  /// All that it printed, to its end. To be called once.
  std::string output();

 private:
  pid_t id_ = -1;
  int input_ = -1;
  int output_ = -1;
};

}  // namespace tela::testing
