// The selects that SQLite runs to make groups of a source select, under a plan (tsql/group_plan.h).
// Their parameters are the source's.
#pragma once

#include <string>
#include <string_view>

namespace tela::embedded {

/// Hands each row of `source` to the function tela_collect. One more parameter, the last, is the
/// function's first argument.
std::string collecting_sql(std::string_view source, std::string_view plan);

/// The groups themselves, as a GroupTable gives them, for groups that are too many for memory:
/// SQLite sorts the rows, on the disk if need be.
std::string sorted_groups_sql(std::string_view source, std::string_view plan);

}  // namespace tela::embedded
