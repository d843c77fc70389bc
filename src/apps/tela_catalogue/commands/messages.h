// What the tool tells its user: lines on standard error, and progress where that is a terminal.
#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <string_view>

namespace tela {

class Messages {
 public:
  /// Writes to `out`, which outlives the object. With `live`, progress is shown as well.
  Messages(std::ostream& out, bool live) : out_(out), live_(live) {}

  /// One line that stays.
  void say(std::string_view text);

  /// How far long work has come: a line that the next one takes the place of, at most a few a
  /// second.
  void progress(const std::function<void(std::ostream&)>& write);

 private:
  void clear_progress();

  std::ostream& out_;
  bool live_;
  bool showing_ = false;
  std::chrono::steady_clock::time_point shown_{};
};

}  // namespace tela
