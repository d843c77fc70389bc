#include "platform/embedded/grouping/group_queries.h"

#include "platform/tsql/grouping/group_plan.h"

namespace tela::embedded {
namespace {

using tsql::GroupColumn;

std::string result(GroupColumn kind, const std::string& column) {
  switch (kind) {
    case GroupColumn::key:
    case GroupColumn::least:
      return "min(" + column + " COLLATE TELA_SPELLING)";
    case GroupColumn::greatest:
      return "max(" + column + " COLLATE TELA_SPELLING)";
    case GroupColumn::count_rows:
      return "count(*)";
    case GroupColumn::count:
      return "count(" + column + ")";
    case GroupColumn::sum:
      return "tela_sum(" + column + ")";
    case GroupColumn::average:
      return "tela_avg(" + column + ")";
    case GroupColumn::whole_average:
      return "(tela_sum(" + column + ") / count(" + column + "))";
  }
  return {};
}

void append(std::string& list, const std::string& member) {
  if (!list.empty()) list += ", ";
  list += member;
}

/// "c0, c1, …": a name for each column of the source.
std::string source_columns(std::string_view plan) {
  std::string columns;
  int taken = 0;
  for (const char letter : plan) {
    if (static_cast<GroupColumn>(letter) == GroupColumn::count_rows) continue;
    append(columns, "c" + std::to_string(taken++));
  }
  return columns;
}

std::string with_source(std::string_view source, const std::string& columns) {
  return "WITH source(" + columns + ") AS (" + std::string(source) + ") SELECT ";
}

}  // namespace

std::string collecting_sql(std::string_view source, std::string_view plan) {
  const std::string columns = source_columns(plan);
  return with_source(source, columns) + "tela_collect(?, " + columns + ") FROM source";
}

std::string sorted_groups_sql(std::string_view source, std::string_view plan) {
  std::string keys;
  std::string results;
  int taken = 0;
  for (const char letter : plan) {
    const auto kind = static_cast<GroupColumn>(letter);
    const std::string column = "c" + std::to_string(taken);
    append(results, result(kind, column));
    if (kind == GroupColumn::key) append(keys, column + " COLLATE TELA");
    if (kind != GroupColumn::count_rows) ++taken;
  }
  return with_source(source, source_columns(plan)) + results + " FROM source GROUP BY " + keys +
         " ORDER BY " + keys;
}

}  // namespace tela::embedded
