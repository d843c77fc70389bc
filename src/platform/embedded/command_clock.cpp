#include "platform/embedded/command_clock.h"

#include <algorithm>
#include <thread>

namespace tela::embedded {
namespace {

// SQLite asks after so many steps of its machine: well under a millisecond.
constexpr int steps_between_questions = 10'000;

}  // namespace

void CommandClock::watch(Database& database) {
  sqlite3_busy_handler(database.handle(), &CommandClock::keep_waiting, this);
  sqlite3_progress_handler(database.handle(), steps_between_questions, &CommandClock::stop, this);
}

void CommandClock::start(std::chrono::seconds limit) {
  end_ = limit.count() == 0 ? Clock::time_point::max() : Clock::now() + limit;
  waits_ = true;
  asks_ = true;
  rows_ = 0;
  cancelled_ = false;
}

void CommandClock::start_without_waiting() {
  end_ = Clock::time_point::max();
  waits_ = false;
  asks_ = false;
}

bool CommandClock::keeps_going() {
  const bool asks = asks_ && keep_going_ && !cancelled_ && std::this_thread::get_id() == thread_;
  if (asks && !keep_going_(rows_)) cancelled_ = true;
  return !cancelled_;
}

int CommandClock::keep_waiting(void* self, int attempt) {
  auto& clock = *static_cast<CommandClock*>(self);
  if (!clock.keeps_going() || !clock.waits_ || Clock::now() >= clock.end_) return 0;
  // Short naps at first: a till's commit is over within milliseconds.
  std::this_thread::sleep_for(std::chrono::milliseconds(std::min(1 + attempt, 10)));
  return 1;
}

int CommandClock::stop(void* self) {
  auto& clock = *static_cast<CommandClock*>(self);
  return !clock.keeps_going() || Clock::now() >= clock.end_ ? 1 : 0;
}

}  // namespace tela::embedded
