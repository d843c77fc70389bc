// Characters and case without a locale: what a figure, a date or a name means must not change with
// the desktop's language. Only the letters A to Z have a case here.
#pragma once

#include <algorithm>
#include <string_view>

namespace tela {

/// What may stand around a number or a date: the space, the tab and the line ends.
constexpr bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
constexpr char to_lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
constexpr bool is_letter(char c) {
  return to_lower(c) >= 'a' && to_lower(c) <= 'z';
}

/// Whether two texts are the same but for the case of the letters A to Z.
constexpr bool equal_ignoring_case(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return to_lower(x) == to_lower(y); });
}

}  // namespace tela
