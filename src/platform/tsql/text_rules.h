// How the server compares texts: without regard to case and to blanks at the end. One order serves
// comparison, grouping, sorting and joining.
#pragma once

#include <cstddef>
#include <string_view>

namespace tela::tsql {

/// Below 0, 0 or above 0 as `left` sorts before, with or behind `right`. The shorter text counts as
/// padded with blanks; letters sort behind digits, those behind other signs. A letter with an
/// accent sorts by the letter, and differs from it where all else is equal: "été" stands behind
/// "ete" and ahead of "etf". Letters of other scripts follow in the order of their code points.
int compare_texts(std::string_view left, std::string_view right);

/// Equal for texts that compare as equal.
std::size_t hash_text(std::string_view text);

/// Texts that compare as equal in the order of their bytes, all others as compare_texts. Picks the
/// same one of several spellings whichever way the rows are read.
int compare_spellings(std::string_view left, std::string_view right);

/// The server's like: % any run, _ one character, [a-z] one of a set, [^a-z] one that is not in it.
/// Blanks at the end of `text` may be left over.
bool matches_like(std::string_view text, std::string_view pattern);

}  // namespace tela::tsql
