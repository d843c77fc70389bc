// How long a statement may take, waiting for other programs included.
#pragma once

#include <chrono>

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// Ends the statements of a connection that outlast their time, and lets them wait for other
/// programs until then. Must stay where it is while the connection is open.
class CommandClock {
 public:
  CommandClock() = default;
  CommandClock(const CommandClock&) = delete;
  CommandClock& operator=(const CommandClock&) = delete;

  void watch(Database& database);

  /// A statement starts now. A limit of 0 is none.
  void start(std::chrono::seconds limit);
  /// From now on nothing waits for another program.
  void start_without_waiting();

 private:
  using Clock = std::chrono::steady_clock;

  static int keep_waiting(void* self, int attempt);
  static int stop(void* self);

  Clock::time_point end_ = Clock::time_point::max();
  bool waits_ = true;
};

}  // namespace tela::embedded
