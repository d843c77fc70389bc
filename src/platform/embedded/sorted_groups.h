// Groups that are too many for memory: SQLite sorts the rows, on the disk if need be.
#pragma once

#include <string>
#include <string_view>

namespace tela::embedded {

/// A select that gives the same rows as a GroupTable over the rows of the select `source` under the
/// same plan (tsql/group_plan.h). Its parameters are the source's.
std::string sorted_groups_sql(std::string_view source, std::string_view plan);

}  // namespace tela::embedded
