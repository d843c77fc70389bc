// Reads one T-SQL statement into a tree by recursive descent.
#pragma once

#include <string_view>

#include "platform/tsql/ast.h"

namespace tela::tsql {

struct Parsed {
  Statement statement;
  std::size_t literal_count = 0;  ///< of the text, in whatever place they stand
};

/// The tree of one statement; a `;` behind it is passed over. Throws CompileError of kind syntax
/// that tells what was found and what was expected. Nesting is bounded, so that no text exhausts
/// the stack.
Parsed parse(std::string_view sql);

}  // namespace tela::tsql
