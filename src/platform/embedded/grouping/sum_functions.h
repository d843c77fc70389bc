// sum and avg as SQLite's own aggregate functions.
#pragma once

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// Makes tela_sum and tela_avg known to a connection: the sums that the client's groups have too.
void register_sum_functions(sqlite3* database);

}  // namespace tela::embedded
