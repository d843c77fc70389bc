#include "platform/text/strings.h"

#include "platform/text/utf8.h"

namespace tela {

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
    const std::string_view rest = text;
    take_character(text);
    pieces.emplace_back(rest.substr(0, rest.size() - text.size()));
  }
  return pieces;
}

}  // namespace tela
