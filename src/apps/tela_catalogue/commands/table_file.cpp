#include "apps/tela_catalogue/commands/table_file.h"

#include <algorithm>
#include <stdexcept>

#include "platform/text/ascii.h"
#include "platform/text/strings.h"

namespace tela {

TableFile::TableFile(const std::filesystem::path& file, std::string_view table,
                     std::span<const TableColumn> columns)
    : input_(file, std::ios::binary), reader_(input_) {
  if (!input_) throw std::runtime_error(file.string() + " cannot be read");
  if (!reader_.read(record_)) throw std::runtime_error(file.string() + " has no header line");
  if (!record_.problem.empty()) throw std::runtime_error(line_text() + record_.problem);
  for (const CsvField& field : record_.fields) add_column(field.text, table, columns);
  if (names_.size() == 1) reader_.count_empty_lines();
}

bool TableFile::read(std::vector<Value>& row, std::string& problems) {
  if (!reader_.read(record_)) return false;
  row.clear();
  problems = record_.problem;
  if (problems.empty() && record_.fields.size() != names_.size()) {
    problems = std::to_string(record_.fields.size()) + " fields instead of " +
               std::to_string(names_.size());
  }
  if (problems.empty()) read_values(row, problems);
  return true;
}

void TableFile::add_column(std::string_view given, std::string_view table,
                           std::span<const TableColumn> columns) {
  const std::string_view name = trimmed(given);
  const auto column = std::ranges::find_if(
      columns, [&](const TableColumn& known) { return equal_ignoring_case(known.name, name); });
  if (column == columns.end()) {
    throw std::runtime_error(line_text() + std::string(table) + " has no column '" +
                             std::string(name) + "'");
  }
  if (std::ranges::find(names_, column->name) != names_.end())
    throw std::runtime_error(line_text() + "column " + column->name + " is named twice");
  names_.push_back(column->name);
  types_.push_back(column->type);
}

void TableFile::read_values(std::vector<Value>& row, std::string& problems) const {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    try {
      row.push_back(csv_value(record_.fields[i], types_[i]));
    } catch (const CsvValueError& error) {
      if (!problems.empty()) problems += "; ";
      problems += names_[i] + ": " + error.what();
    }
  }
}

}  // namespace tela
