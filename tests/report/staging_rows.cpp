// Reads the columns of the staging tables and fills them.
#include "report/staging_rows.h"
#include "source_folder/source_folder.h"

#include <fstream>
#include <sstream>

namespace tela {
namespace {

FieldType field_type(const std::string& declared) {
  if (declared.starts_with("varchar")) return FieldType::text;
  if (declared.starts_with("date")) return FieldType::date;
  if (declared.starts_with("time")) return FieldType::time;
  return declared.starts_with("float") ? FieldType::number : FieldType::whole_number;
}

Value plausible(const Field& field, int row, int column) {
  const std::chrono::sys_days start = std::chrono::year(2024) / 1 / 1;
  switch (field.type) {
    case FieldType::text:
      if (field.name.find("ame") == std::string::npos) return std::to_string(10063020 + row);
      return "Sona Masoori Rice 25 kg bag, O'Neil & Sons no. " + std::to_string(row);
    case FieldType::date:
      return Date(start + std::chrono::days(row / 50));
    case FieldType::time:
      return TimeOfDay{9 + row % 12, row % 60, 0};
    case FieldType::number:
      return (row * 7919 % 40000000) / 100.0 + column;
    case FieldType::whole_number:
      return std::int64_t{row} + 1;
  }
  return {};
}

}  // namespace

std::map<std::string, RowSet> staging_tables() {
  std::ifstream file(source_folder() / "catalogue" / "staging.sql");
  std::map<std::string, RowSet> tables;
  RowSet* table = nullptr;
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string first, second, third;
    words >> first >> second >> third;
    if (first == "create") {
      table = &tables[third];
    } else if (first == ")") {
      table = nullptr;
    } else if (table != nullptr && !second.empty()) {
      table->fields.push_back({first, field_type(second)});
    }
  }
  return tables;
}

RowSet staging_rows(const RowSet& table, int count) {
  RowSet rows{table.fields, {}};
  for (int row = 0; row < count; ++row) {
    std::vector<Value>& values = rows.rows.emplace_back();
    for (std::size_t column = 0; column < rows.fields.size(); ++column) {
      values.push_back(plausible(rows.fields[column], row, static_cast<int>(column)));
    }
  }
  return rows;
}

}  // namespace tela
