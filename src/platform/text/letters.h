// Letters beyond A to Z: their case, and the letter that an accent stands on. Latin (with the
// letters of Europe's languages), Greek and Cyrillic; other scripts of the shop have no case.
//
// The facts are those of the Unicode Character Database (simple case mappings and decompositions,
// https://www.unicode.org/reports/tr44/). No locale is consulted.
#pragma once

#include <string>
#include <string_view>

namespace tela {

/// The small letter of a capital one; any other character as it is.
char32_t lower_case(char32_t character);
/// The capital letter of a small one; any other character as it is.
char32_t upper_case(char32_t character);

/// The same for all characters of a UTF-8 text.
std::string lower_case(std::string_view text);
std::string upper_case(std::string_view text);

/// The letter without accents, small: e of é, o of Ø, ε of έ. 0 for a character that carries none.
char32_t base_letter(char32_t character);

}  // namespace tela
