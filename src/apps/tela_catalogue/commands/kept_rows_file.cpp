#include "apps/tela_catalogue/commands/kept_rows_file.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "platform/text/date_text.h"

namespace tela {
namespace {

constexpr std::size_t day_length = 10;

bool is_moment(FieldType type) {
  return type == FieldType::date || type == FieldType::time;
}

// A server's column may hold days, times, or both in one; its type does not tell which the rows
// were, but each form of text has one meaning.
std::vector<TableColumn> table_columns(const std::vector<Field>& fields) {
  std::vector<TableColumn> columns;
  for (const Field& field : fields) {
    CsvColumn type{is_moment(field.type) ? FieldType::text : field.type};
    type.smallest = std::numeric_limits<std::int64_t>::min();
    type.largest = std::numeric_limits<std::int64_t>::max();
    columns.push_back({field.name, type});
  }
  return columns;
}

// "2024-01-05", "14:05:00", or both with a blank between, which a server reads alike in every
// language only without the hyphens.
Value moment(const std::string& text) {
  if (text.size() == day_length) {
    if (const auto day = read_sql_date(text)) return *day;
  }
  if (text.size() < day_length) {
    if (const auto time = read_time(text)) return *time;
  }
  std::string digits = text;
  std::erase(digits, '-');
  return digits;
}

}  // namespace

KeptRowsFile::KeptRowsFile(const std::filesystem::path& file, const std::string& table,
                           const std::vector<Field>& columns)
    : name_(file.string()), rows_(file, table, table_columns(columns)) {
  const std::vector<std::string>& names = rows_.columns();
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto field = std::ranges::find(columns, names[i], &Field::name);
    if (is_moment(field->type)) moments_.push_back(i);
  }
}

bool KeptRowsFile::read(std::vector<Value>& row) {
  std::string problems;
  if (!rows_.read(row, problems)) return false;
  if (!problems.empty()) throw std::runtime_error(name_ + ", " + rows_.line_text() + problems);
  for (const std::size_t position : moments_)
    if (const auto* text = std::get_if<std::string>(&row[position])) row[position] = moment(*text);
  return true;
}

}  // namespace tela
