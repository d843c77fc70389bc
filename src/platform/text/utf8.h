// Texts are UTF-8; widths and cuts are in characters (code points), so no character is ever split.
// A byte that is not part of well-formed UTF-8 counts as one character of its own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tela {

/// What `take_character` gives for a byte that is not part of well-formed UTF-8.
inline constexpr char32_t kNotACharacter = 0xFFFD;

/// Takes the first character off `text`, which must not be empty, and returns its code point.
char32_t take_character(std::string_view& text);

/// Appends a character by its code point, which must be one.
void append_character(std::string& text, char32_t character);

/// The number of characters in `text`.
std::size_t character_count(std::string_view text);

/// The first `count` characters of `text`, or all of it when it has fewer.
std::string_view first_characters(std::string_view text, std::size_t count);

/// One byte a character: those of ISO 8859-1 as themselves, every other one as '?'.
std::string to_latin1(std::string_view text);

}  // namespace tela
