// Writes a tree as T-SQL again: one way of writing for each tree, which parses to an equal tree.
#pragma once

#include <string>

#include "platform/tsql/ast.h"

namespace tela::test {

std::string print(const tsql::Statement& statement);

}  // namespace tela::test
