// A table of texts as aligned lines for a terminal.
#pragma once

#include <string>
#include <vector>

namespace tela {

/// The rows as lines: cells padded to their column's width and two blanks apart, columns of numbers
/// to the right. The first row is the header and gets a rule below it. Rows may be of different
/// length. Widths count characters of UTF-8.
std::string text_table(const std::vector<std::vector<std::string>>& rows);

}  // namespace tela
