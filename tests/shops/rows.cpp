#include "shops/rows.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/text/strings.h"

namespace tela::testing {

double Row::number(const std::string& cell) const {
  const auto found = cells.find(cell);
  const auto* value = found == cells.end() ? nullptr : std::get_if<double>(&found->second);
  return value == nullptr ? std::numeric_limits<double>::quiet_NaN() : *value;
}

const std::string& Row::text(const std::string& cell) const {
  static const std::string kNone;
  const auto found = cells.find(cell);
  const auto* value = found == cells.end() ? nullptr : std::get_if<std::string>(&found->second);
  return value == nullptr ? kNone : *value;
}

bool Row::is_null(const std::string& cell) const {
  const auto found = cells.find(cell);
  if (found == cells.end() || std::holds_alternative<std::monostate>(found->second)) return true;
  const auto* value = std::get_if<double>(&found->second);
  return value != nullptr && std::isnan(*value);
}

bool Row::is(const std::string& cell, const std::string& wanted) const {
  return !is_null(cell) && text_key(text(cell)) == text_key(wanted);
}

std::string text_key(const std::string& text) {
  std::string key(without_trailing_blanks(text));
  for (char& letter : key)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return key;
}

namespace {

// A null, a number and a text never make one key.
std::string cell_key(const Row& row, const std::string& cell) {
  if (row.is_null(cell)) return "null";
  if (const auto* text = std::get_if<std::string>(&row.cells.at(cell)))
    return "'" + text_key(*text);
  return std::to_string(row.number(cell) + 0.0);
}

Cell number_cell(double value) {
  return std::isnan(value) ? Cell() : Cell(value);
}

// What nulls leave of a list of numbers.
std::vector<double> numbers(const std::vector<const Row*>& rows, const Number& of) {
  std::vector<double> all;
  all.reserve(rows.size());
  for (const Row* row : rows) all.push_back(of(*row));
  all.erase(std::remove_if(all.begin(), all.end(), [](double one) { return std::isnan(one); }),
            all.end());
  return all;
}

double sum_of(const std::vector<double>& all) {
  double sum = 0;
  for (const double one : all) sum += one;
  return all.empty() ? std::numeric_limits<double>::quiet_NaN() : sum;
}

}  // namespace

Rows of(const Rows& rows, const std::string& table) {
  return where(rows, [&](const Row& row) { return row.table == table; });
}

Rows where(Rows rows, const Test& keeps) {
  rows.erase(std::remove_if(rows.begin(), rows.end(), [&](const Row& row) { return !keeps(row); }),
             rows.end());
  return rows;
}

Rows within(Rows rows, const std::string& day, const std::string& from, const std::string& to) {
  return where(std::move(rows), [&](const Row& row) {
    return !row.is_null(day) && row.text(day) >= from && row.text(day) <= to;
  });
}

Rows with(Rows rows, const std::string& cell, const Number& reckoned) {
  for (Row& row : rows) row.cells[cell] = number_cell(reckoned(row));
  return rows;
}

Rows joined(const Rows& left, const std::string& left_cell, const Rows& right,
            const std::string& right_cell, const std::string& prefix) {
  Rows pairs;
  for (const Row& first : left)
    for (const Row& second : right) {
      if (first.is_null(left_cell) || second.is_null(right_cell)) continue;
      if (cell_key(first, left_cell) != cell_key(second, right_cell)) continue;
      Row pair = first;
      for (const auto& [name, value] : second.cells) pair.cells[prefix + name] = value;
      pairs.push_back(std::move(pair));
    }
  return pairs;
}

Rows unmatched(const Rows& left, const std::string& left_cell, const Rows& right,
               const std::string& right_cell) {
  return where(left, [&](const Row& row) {
    return joined({row}, left_cell, right, right_cell, "right.").empty();
  });
}

Rows grouped(const Rows& rows, const std::vector<std::string>& keys, const Reckonings& sums,
             const Reckonings& means) {
  std::map<std::vector<std::string>, std::vector<const Row*>> groups;
  for (const Row& row : rows) {
    std::vector<std::string> key;
    key.reserve(keys.size());
    for (const std::string& name : keys) key.push_back(cell_key(row, name));
    groups[key].push_back(&row);
  }
  Rows made;
  for (const auto& [key, members] : groups) {
    Row row;
    for (const std::string& name : keys)
      if (!members.front()->is_null(name)) row.cells[name] = members.front()->cells.at(name);
    for (const auto& [name, of] : sums) row.cells[name] = number_cell(sum_of(numbers(members, of)));
    for (const auto& [name, of] : means) {
      const std::vector<double> all = numbers(members, of);
      row.cells[name] = number_cell(sum_of(all) / static_cast<double>(all.size()));
    }
    made.push_back(std::move(row));
  }
  return made;
}

double sum(const Rows& rows, const Number& of) {
  double total = 0;
  for (const Row& row : rows) {
    const double one = of(row);
    if (!std::isnan(one)) total += one;
  }
  return total;
}

Number cell(const std::string& name) {
  return [name](const Row& row) { return row.number(name); };
}

}  // namespace tela::testing
