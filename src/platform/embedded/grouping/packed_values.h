// Any number of values as one value of SQLite, so that a table-valued function takes them all.
#pragma once

#include <sqlite3.h>

#include <vector>

#include "platform/tsql/values.h"

namespace tela::embedded {

/// Makes the function tela_values(…) known to a connection: it packs its arguments into one value.
/// A packed value among them adds what it holds. SQLite's result code.
int register_packing(sqlite3* database);

/// The values that tela_values has packed.
std::vector<tsql::StoredValue> unpack_values(sqlite3_value* packed);

}  // namespace tela::embedded
