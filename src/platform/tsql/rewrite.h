// Changes of a bound tree that keep its meaning and suit the engine better.
#pragma once

#include "platform/tsql/ast.h"

namespace tela::tsql {

/// Applies the rewrites, in their order, to a bound select and to all selects below it.
void rewrite(Select& select, Grouping grouping);

}  // namespace tela::tsql
