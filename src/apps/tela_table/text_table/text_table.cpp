#include "apps/tela_table/text_table/text_table.h"

#include <algorithm>

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "platform/text/utf8.h"

namespace tela {
namespace {

struct Column {
  std::size_t width = 0;
  bool numeric = true;  // as long as no cell below the header says otherwise
};

std::vector<Column> columns_of(const std::vector<std::vector<std::string>>& rows) {
  std::vector<Column> columns;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    columns.resize(std::max(columns.size(), rows[row].size()));
    for (std::size_t i = 0; i < rows[row].size(); ++i) {
      const std::string& cell = rows[row][i];
      columns[i].width = std::max(columns[i].width, character_count(cell));
      if (row > 0 && !cell.empty() && !is_numeric(cell)) columns[i].numeric = false;
    }
  }
  return columns;
}

std::string line_of(const std::vector<std::string>& row, const std::vector<Column>& columns) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string padding(columns[i].width - character_count(row[i]), ' ');
    if (i > 0) line += "  ";
    line += columns[i].numeric ? padding + row[i] : row[i] + padding;
  }
  return std::string(without_trailing_blanks(line)) + '\n';
}

std::string rule_of(const std::vector<Column>& columns) {
  std::string rule;
  for (const Column& column : columns) {
    if (!rule.empty()) rule += "  ";
    rule.append(column.width, '-');
  }
  return rule + '\n';
}

}  // namespace

std::string text_table(const std::vector<std::vector<std::string>>& rows) {
  const std::vector<Column> columns = columns_of(rows);
  std::string text;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    text += line_of(rows[row], columns);
    if (row == 0) text += rule_of(columns);
  }
  return text;
}

}  // namespace tela
