// Grouping on several threads.
#pragma once

#include <optional>

#include "platform/embedded/grouping/group_rows.h"
#include "platform/embedded/grouping/reading_helpers.h"

namespace tela::embedded {

/// The groups of a call's rows, which `database` and the helpers read in parts of days at the same
/// time; the same groups that one reader makes. Nullopt where that does not pay, where nobody
/// helps, or where anything fails: one reader alone then decides, and tells the failure. The groups
/// of all readers together stay within about `most_groups`.
std::optional<GroupTable> divided_groups(sqlite3* database, ReadingHelpers& helpers,
                                         const GroupCall& call, std::size_t most_groups);

}  // namespace tela::embedded
