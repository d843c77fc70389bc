// Reads a bill's bytes as its printer would: what stands where on paper, and in which size. It
// knows the commands that the layouts use and refuses any other, so that a stray byte does not go
// unseen.
#pragma once

#include <string_view>
#include <vector>

namespace tela {

struct PrintedCharacter {
  char character = ' ';  ///< ISO 8859-1
  int column = 0;        ///< from 0, in columns of the normal size
  int width = 1;         ///< 2 in double width
  int height = 1;        ///< 2 in double height
  bool emphasised = false;
};

struct PrintedLine {
  std::vector<PrintedCharacter> characters;
  bool cut_here = false;  ///< the paper is cut ahead of this line
};

/// The lines that `bytes` print on paper of so many columns; what does not fit goes on in the next
/// line. Throws std::runtime_error for a command that no layout uses.
std::vector<PrintedLine> read_escpos(std::string_view bytes, int columns);

}  // namespace tela
