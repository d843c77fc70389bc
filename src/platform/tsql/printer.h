// Writes a tree as T-SQL again: one way of writing for each tree, which parses to an equal tree.
#pragma once

#include <string>

#include "platform/tsql/ast.h"

namespace tela::tsql {

std::string print(const Statement& statement);

}  // namespace tela::tsql
