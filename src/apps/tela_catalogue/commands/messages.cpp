#include "apps/tela_catalogue/commands/messages.h"

namespace tela {

void Messages::say(std::string_view text) {
  clear_progress();
  out_ << text << std::endl;
}

void Messages::progress(const std::function<void(std::ostream&)>& write) {
  const auto now = std::chrono::steady_clock::now();
  if (!live_ || now - shown_ < std::chrono::milliseconds(200)) return;
  clear_progress();
  write(out_);
  out_.flush();
  shown_ = now;
  showing_ = true;
}

// Back to the line's start, and the rest of the line erased.
void Messages::clear_progress() {
  if (showing_) out_ << "\r\033[K";
  showing_ = false;
}

}  // namespace tela
