#include "report_framework/lacking_amounts.h"

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

#include "platform/text/ascii.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

constexpr std::string_view kGreatestWidth = "40";

bool is_word_character(char letter) {
  return is_digit(letter) || is_letter(letter) || letter == '_';
}

// The position behind the quoted text that starts at `at`.
std::size_t behind_quotes(std::string_view sql, std::size_t at) {
  return std::min(sql.find('\'', at + 1), sql.size() - 1) + 1;
}

bool calls_str(std::string_view sql, std::size_t at) {
  constexpr std::string_view kCall = "str(";
  return equal_ignoring_case(sql.substr(at, kCall.size()), kCall) &&
         (at == 0 || !is_word_character(sql[at - 1]));
}

// The commas of the call whose bracket stands at `bracket`, and its closing bracket.
std::vector<std::size_t> argument_ends(std::string_view sql, std::size_t bracket) {
  std::vector<std::size_t> ends;
  int depth = 0;
  for (std::size_t at = bracket; at < sql.size();) {
    if (sql[at] == '\'') {
      at = behind_quotes(sql, at);
      continue;
    }
    depth += sql[at] == '(' ? 1 : sql[at] == ')' ? -1 : 0;
    if ((sql[at] == ',' && depth == 1) || depth == 0) ends.push_back(at);
    if (depth == 0) break;
    ++at;
  }
  return ends;
}

}  // namespace

bool is_overflow(std::string_view text) {
  text = trimmed(text);
  return !text.empty() && text.find_first_not_of('*') == std::string_view::npos;
}

std::string with_room_for_amounts(std::string_view sql) {
  std::string wide;
  for (std::size_t at = 0; at < sql.size();) {
    std::size_t next = at + 1;
    if (sql[at] == '\'') next = behind_quotes(sql, at);
    wide += sql.substr(at, next - at);
    if (!calls_str(sql, at)) {
      at = next;
      continue;
    }
    const auto ends = argument_ends(sql, at + 3);
    if (ends.size() != 3) {
      at = next;
      continue;
    }
    wide += sql.substr(next, ends[0] + 1 - next);
    wide += kGreatestWidth;
    wide += sql.substr(ends[1], ends[2] - ends[1]);
    at = ends[2];
  }
  return wide;
}

namespace {

std::optional<std::size_t> key_column(const GridColumns& columns) {
  for (std::size_t col = 0; col < columns.size(); ++col)
    if (columns[col].source.field >= 0 && !columns[col].source.worked_out) return col;
  return std::nullopt;
}

// Whether the record is the one that the list shows in that row.
bool is_same_row(const Grid& grid, int row, const GridColumns& columns, const Recordset& record) {
  const auto key = key_column(columns);
  if (!key) return false;
  const CellSource& source = columns[*key].source;
  return cell_text(record.field(source.field), source) ==
         grid.TextMatrix(row, static_cast<int>(*key));
}

}  // namespace

LackingAmounts lacking_amounts(const Grid& grid, const GridColumns& columns, Recordset& wide) {
  LackingAmounts sums;
  int row = 1;
  auto cell = grid.WideCells().begin();
  for (; !wide.eof(); wide.move_next(), ++row) {
    for (; cell != grid.WideCells().end() && cell->first == row; ++cell) {
      if (!is_same_row(grid, row, columns, wide)) return {};
      const GridColumn& column = columns[static_cast<std::size_t>(cell->second)];
      sums[cell->second] +=
          Val(format_number(field_number(wide.field(column.source.field)), column.total.mask));
    }
  }
  return cell == grid.WideCells().end() ? sums : LackingAmounts();
}

namespace {

std::string total_name(const Form& form, const GridColumn& column) {
  std::string name(trimmed(form.at(column.total.box).caption));
  return name.empty() ? "total of " + column.header : name;
}

}  // namespace

std::string lacking_note(const Form& form, const Grid& grid, const GridColumns& columns,
                         const LackingAmounts& lacking, const std::string& instead) {
  std::set<int> rows;
  for (const auto& [row, col] : grid.WideCells()) rows.insert(row);
  std::string note = rows.size() == 1 ? "1 row has" : std::to_string(rows.size()) + " rows have";
  note += " an amount too wide for the list, which counts as 0 in the totals. ";
  std::string amounts;
  for (const auto& [col, sum] : lacking) {
    const GridColumn& column = columns[static_cast<std::size_t>(col)];
    amounts += (amounts.empty() ? "" : ", ") + total_name(form, column) + " lacks " +
               format_number(sum, column.total.mask);
  }
  note += amounts.empty() ? "How much they lack cannot be known from here." : amounts + ".";
  if (!instead.empty()) note += " For the whole amounts take " + instead + ".";
  return note;
}

}  // namespace tela
