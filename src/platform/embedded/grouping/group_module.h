// The groups that the client makes, as a table that SQLite reads.
#pragma once

#include <cstddef>

struct sqlite3;

namespace tela::embedded {

class ReadingHelpers;

struct GroupSettings {
  /// More groups than these are sorted by SQLite instead; the default keeps a report of ten years
  /// below 300 MB.
  std::size_t most_in_memory = 300'000;
  /// Who may read along; nobody by default.
  ReadingHelpers* helpers = nullptr;
};

/// Makes the table-valued function tela_groups(source, plan, first, last, parameters) known to a
/// connection: the rows of the select `source`, grouped as `plan` says (tsql/group_plan.h), in the
/// order of the keys, with columns c0, c1 …. The parameters are the source's ?1, ?2 …, packed by
/// tela_values (packed_values.h); `first` and `last` are the numbers of the two among them that
/// bound the rows' days, both in, or 0. Throws DatabaseError.
void register_groups(sqlite3* database, const GroupSettings& settings = {});

}  // namespace tela::embedded
