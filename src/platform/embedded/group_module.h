// The groups that the client makes, as a table that SQLite reads.
#pragma once

struct sqlite3;

namespace tela::embedded {

/// Makes the table-valued function tela_groups(source, plan, parameters…) known to a connection:
/// the rows of the select `source`, grouped as `plan` says (tsql/group_plan.h), in the order of the
/// keys, with columns c0, c1 …. The parameters are the source's ?1, ?2 …. Throws DatabaseError.
void register_groups(sqlite3* database);

}  // namespace tela::embedded
