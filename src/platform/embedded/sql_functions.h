// The functions and collations that compiled T-SQL calls inside SQLite.
#pragma once

struct sqlite3;

namespace tela {

/// Makes the collations TELA and TELA_SPELLING, the functions tela_… and the table tela_groups
/// known to a connection. Needed before anything that tela::tsql::compile gives is prepared on it.
/// Throws DatabaseError.
void register_sql_functions(sqlite3* database);

}  // namespace tela
