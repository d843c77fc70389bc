// The groups that the client makes, as a table that SQLite reads.
#pragma once

#include <cstddef>

struct sqlite3;

namespace tela::embedded {

/// Makes the table-valued function tela_groups(source, plan, parameters…) known to a connection:
/// the rows of the select `source`, grouped as `plan` says (tsql/group_plan.h), in the order of the
/// keys, with columns c0, c1 …. The parameters are the source's ?1, ?2 …. More groups
/// than `most_in_memory` are sorted by SQLite instead; the default keeps a report of ten years
/// below 300 MB. Throws DatabaseError.
void register_groups(sqlite3* database, std::size_t most_in_memory = 300'000);

}  // namespace tela::embedded
