#include "platform/embedded/sorted_groups.h"

#include "platform/tsql/group_plan.h"

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

}  // namespace

std::string sorted_groups_sql(std::string_view source, std::string_view plan) {
  std::string columns;
  std::string keys;
  std::string results;
  int taken = 0;
  for (const char letter : plan) {
    const auto kind = static_cast<GroupColumn>(letter);
    const std::string column = "c" + std::to_string(taken);
    append(results, result(kind, column));
    if (kind == GroupColumn::key) append(keys, column + " COLLATE TELA");
    if (kind == GroupColumn::count_rows) continue;
    append(columns, column);
    ++taken;
  }
  return "WITH source(" + columns + ") AS (" + std::string(source) + ") SELECT " + results +
         " FROM source GROUP BY " + keys + " ORDER BY " + keys;
}

}  // namespace tela::embedded
