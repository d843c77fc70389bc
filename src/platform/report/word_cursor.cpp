// Taking words and numbers from a layout line.
#include "platform/report/word_cursor.h"

#include <charconv>
#include <stdexcept>

#include "platform/text/ascii.h"

namespace tela {

bool WordCursor::take(std::string_view keyword) {
  if (at_end() || words_[next_].quoted || !equal_ignoring_case(words_[next_].text, keyword))
    return false;
  ++next_;
  return true;
}

const LayoutWord& WordCursor::next(std::string_view what, bool quoted) {
  const std::string wanted = (quoted ? "a quoted " : "a ") + std::string(what);
  if (at_end()) throw std::invalid_argument(wanted + " is missing");
  const LayoutWord& found = words_[next_];
  if (found.quoted != quoted) {
    throw std::invalid_argument(wanted + " is wanted where '" + found.text + "' stands");
  }
  ++next_;
  return found;
}

std::string WordCursor::word(std::string_view what) {
  return next(what, false).text;
}

std::string WordCursor::quoted(std::string_view what) {
  return next(what, true).text;
}

double WordCursor::number(std::string_view what) {
  const std::string& text = next(what, false).text;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !(value >= 0 && value < 10000)) {
    throw std::invalid_argument("the " + std::string(what) + " '" + text + "' is no measure");
  }
  return value;
}

void WordCursor::expect_end() const {
  if (!at_end()) throw std::invalid_argument("'" + words_[next_].text + "' is not understood here");
}

}  // namespace tela
