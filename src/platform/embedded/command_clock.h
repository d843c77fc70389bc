// How long a statement may take, waiting for other programs included, and whether it is to go on.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>
#include <utility>

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// Ends the statements of a connection that outlast their time or that the user cancels, and lets
/// them wait for other programs until then. Must stay where it is while the connection is open.
class CommandClock {
 public:
  CommandClock() = default;
  CommandClock(const CommandClock&) = delete;
  CommandClock& operator=(const CommandClock&) = delete;

  void watch(Database& database);

  /// A statement starts now. A limit of 0 is none.
  void start(std::chrono::seconds limit);
  /// The statement that runs has no limit any more.
  void wait_without_end() { end_ = Clock::time_point::max(); }
  /// Who is asked whether the statements go on, on the thread that made the clock.
  void set_keep_going(const KeepGoing& keep_going) { keep_going_ = keep_going; }
  /// A row of the statement is there.
  void count_row() { ++rows_; }
  /// What runs until the next start is to be finished: nobody is asked.
  void ask_nobody() { asks_ = false; }
  /// Asks. Once the statement is cancelled, the answer stays no until the next start.
  bool keeps_going();
  bool is_cancelled() const { return cancelled_; }

  /// From now on nothing waits for another program.
  void start_without_waiting();

 private:
  using Clock = std::chrono::steady_clock;

  static int keep_waiting(void* self, int attempt);
  static int stop(void* self);

  Clock::time_point end_ = Clock::time_point::max();
  bool waits_ = true;
  bool asks_ = true;
  KeepGoing keep_going_;
  std::int64_t rows_ = 0;
  std::atomic<bool> cancelled_ = false;  // helpers look at it from threads of their own
  std::thread::id thread_ = std::this_thread::get_id();
};

}  // namespace tela::embedded
