// Blanks and characters of a text. A blank is the space alone; a character is one code point of
// UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tela {

/// The text without the blanks at both ends.
std::string_view trimmed(std::string_view text);

/// The text without the blanks at its end.
std::string_view without_trailing_blanks(std::string_view text);

/// The characters of a UTF-8 text, one by one. A byte that belongs to no character counts as one of
/// its own, so that putting the pieces together gives the text again.
std::vector<std::string> characters(std::string_view text);

}  // namespace tela
