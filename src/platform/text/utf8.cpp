#include "platform/text/utf8.h"

#include <bit>

namespace tela {
namespace {

// The least code point that needs a sequence of the given length: anything lower is an overlong
// form.
constexpr char32_t kLeastOfLength[] = {0, 0, 0x80, 0x800, 0x10000};

bool is_valid(char32_t code, int length) {
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code >= kLeastOfLength[length] && code <= 0x10FFFF && !surrogate;
}

}  // namespace

char32_t take_character(std::string_view& text) {
  const auto byte_at = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const auto reject = [&text] {
    text.remove_prefix(1);
    return kNotACharacter;
  };
  const unsigned char lead = byte_at(0);
  const int length = lead < 0x80 ? 1 : std::countl_one(lead);
  if (length == 1 && lead >= 0x80) return reject();
  if (length > 4 || text.size() < static_cast<std::size_t>(length)) return reject();

  char32_t code = length == 1 ? lead : lead & (0x7Fu >> length);
  for (int i = 1; i < length; ++i) {
    const unsigned char next = byte_at(static_cast<std::size_t>(i));
    if ((next & 0xC0) != 0x80) return reject();
    code = code << 6 | (next & 0x3F);
  }
  if (!is_valid(code, length)) return reject();
  text.remove_prefix(static_cast<std::size_t>(length));
  return code;
}

void append_character(std::string& text, char32_t character) {
  const auto append_tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
    append_tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | (character >> 12U));
    append_tail(6);
    append_tail(0);
  } else {
    text += static_cast<char>(0xF0U | (character >> 18U));
    append_tail(12);
    append_tail(6);
    append_tail(0);
  }
}

std::size_t character_count(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) take_character(text);
  return count;
}

std::string_view first_characters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) take_character(rest);
  return text.substr(0, text.size() - rest.size());
}

std::string to_latin1(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const char32_t code = take_character(text);
    bytes += code < 0x100 ? static_cast<char>(static_cast<unsigned char>(code)) : '?';
  }
  return bytes;
}

}  // namespace tela
