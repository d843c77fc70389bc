// Leaves other programs their turn to write.
#pragma once

#include <chrono>
#include <optional>

namespace tela::embedded {

/// SQLite keeps no queue for its write lock: a till that waits looks again from time to time, and a
/// program that takes the lock anew as soon as it has let it go can keep the till waiting for
/// seconds. So after it has held the lock for a while, this connection leaves it alone for as long,
/// 50 ms at the most.
class WriteTurns {
 public:
  /// Waits for this connection's next turn.
  void wait() const;
  void note_taken() { taken_ = Clock::now(); }
  /// Nothing, where the lock was not taken.
  void note_released();

 private:
  using Clock = std::chrono::steady_clock;

  std::optional<Clock::time_point> taken_;
  Clock::time_point next_turn_{};
};

}  // namespace tela::embedded
