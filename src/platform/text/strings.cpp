#include "platform/text/strings.h"

#include <algorithm>

namespace tela {

namespace {

// How many bytes the character that starts here has, by its first byte.
std::size_t announced_length(unsigned char first) {
  if (first >= 0xF0 && first <= 0xF4) return 4;
  if (first >= 0xE0) return first < 0xF0 ? 3 : 1;
  if (first >= 0xC2) return 2;
  return 1;
}

std::size_t character_length(std::string_view text) {
  const std::size_t length = announced_length(static_cast<unsigned char>(text.front()));
  if (length > text.size()) return 1;
  const auto continues = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
  };
  return std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
                     continues)
             ? length
             : 1;
}

}  // namespace

std::string_view without_trailing_blanks(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view()
                                         : without_trailing_blanks(text.substr(first));
}

std::vector<std::string> characters(std::string_view text) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    const std::size_t length = character_length(text);
    pieces.emplace_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return pieces;
}

}  // namespace tela
