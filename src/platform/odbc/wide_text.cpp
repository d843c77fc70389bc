#include "platform/odbc/wide_text.h"

#include "platform/text/utf8.h"

namespace tela::odbc {
namespace {

bool is_surrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xE000;
}
bool is_high_surrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

/// Takes the first character off `text`, which must not be empty.
char32_t take_character(std::u16string_view& text) {
  const char16_t first = text[0];
  const char16_t second = text.size() > 1 ? text[1] : u'\0';
  text.remove_prefix(1);
  if (!is_surrogate(first)) return first;
  const bool paired =
      is_high_surrogate(first) && is_surrogate(second) && !is_high_surrogate(second);
  if (!paired) return kNotACharacter;
  text.remove_prefix(1);
  return 0x10000 + ((first - 0xD800U) << 10U) + (second - 0xDC00U);
}

void append(char32_t code, std::u16string& out) {
  if (code < 0x10000) {
    out += static_cast<char16_t>(code);
    return;
  }
  out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10U));
  out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
}

}  // namespace

std::u16string to_utf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) append(tela::take_character(utf8), out);
  return out;
}

std::string to_utf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size());
  while (!utf16.empty()) append_character(out, take_character(utf16));
  return out;
}

}  // namespace tela::odbc
