#include "platform/embedded/write_turns.h"

#include <algorithm>
#include <thread>

namespace tela::embedded {
namespace {

constexpr std::chrono::milliseconds longest_pause{50};

}  // namespace

void WriteTurns::wait() const {
  std::this_thread::sleep_until(next_turn_);
}

void WriteTurns::note_released() {
  if (!taken_) return;
  const auto now = Clock::now();
  next_turn_ = now + std::min<Clock::duration>(now - *taken_, longest_pause);
  taken_.reset();
}

}  // namespace tela::embedded
