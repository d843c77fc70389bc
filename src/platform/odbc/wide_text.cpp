#include "platform/odbc/wide_text.h"

#include <cstddef>
#include <cstdint>

namespace tela::odbc {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Decoded {
  char32_t code;
  std::size_t units;  ///< how many units of the source it took
};

/// How many bytes a UTF-8 sequence that starts with `lead` has; 0 if none starts so.
std::size_t sequence_length(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

Decoded decode(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t length = sequence_length(lead);
  if (length == 1) return {lead, 1};
  if (length == 0 || text.size() < length) return {kReplacement, 1};
  char32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return {kReplacement, 1};
    code = (code << 6U) | (byte & 0x3FU);
  }
  // Longer than need be, beyond Unicode, or a surrogate: none of them is UTF-8.
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  if (code < smallest[length] || code > 0x10FFFF || surrogate) return {kReplacement, 1};
  return {code, length};
}

Decoded decode(std::u16string_view text) {
  const char16_t first = text[0];
  if (first < 0xD800 || first >= 0xE000) return {first, 1};
  const bool paired = first < 0xDC00 && text.size() > 1 && text[1] >= 0xDC00 && text[1] < 0xE000;
  if (!paired) return {kReplacement, 1};
  return {0x10000 + ((first - 0xD800U) << 10U) + (text[1] - 0xDC00U), 2};
}

void append(char32_t code, std::u16string& out) {
  if (code < 0x10000) {
    out += static_cast<char16_t>(code);
    return;
  }
  out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10U));
  out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
}

void append(char32_t code, std::string& out) {
  const auto tail = [&](unsigned shift) {
    out += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | (code >> 6U));
    tail(0);
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0U | (code >> 12U));
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0U | (code >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

template <class Out, class In>
Out convert(In text) {
  Out out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = decode(text);
    append(next.code, out);
    text.remove_prefix(next.units);
  }
  return out;
}

}  // namespace

std::u16string to_utf16(std::string_view utf8) {
  return convert<std::u16string>(utf8);
}

std::string to_utf8(std::u16string_view utf16) {
  return convert<std::string>(utf16);
}

}  // namespace tela::odbc
