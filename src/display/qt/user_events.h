// What the user does, one event at a time. Every window sends its events through here, so that they
// end the same way: the windows show what the logic holds, and a closed window is gone.
#pragma once

#include <QElapsedTimer>
#include <cstdint>
#include <functional>
#include <vector>

namespace tela {

class UserEvents {
 public:
  /// `finished` is called at the end of each event.
  explicit UserEvents(std::function<void()> finished) : finished_(std::move(finished)) {}

  /// Runs an event that may take its time, under the busy pointer. An event that comes while
  /// another one is running is dropped: the logic runs each to its end. What the logic does not
  /// allow has no effect, and the windows go back to what it holds.
  void run(const std::function<void()>& event);
  /// The same for a keystroke, without a pointer that flickers.
  void run_quietly(const std::function<void()>& event);

  /// Runs an event as soon as the one that is running has ended, or at once.
  void run_afterwards(const std::function<void()>& event);

  bool running() const { return running_; }
  /// For how long the event is running, in milliseconds.
  std::int64_t elapsed() const { return clock_.elapsed(); }

 private:
  std::function<void()> finished_;
  bool running_ = false;
  QElapsedTimer clock_;
  std::vector<std::function<void()>> afterwards_;
};

}  // namespace tela
