// The rows of a small shop as plain values, and the few ways to read them that the reports have:
// a second reckoning that shares nothing with the statements of the screens.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tela::testing {

/// Null, a number or a text. A day is a text such as "2024-02-29".
using Cell = std::variant<std::monostate, double, std::string>;

/// A row of a table, or one worked out of such rows.
struct Row {
  std::string table;
  std::map<std::string, Cell> cells;

  /// The number in a cell; NaN for null, so that what is reckoned from a null is one.
  double number(const std::string& cell) const;
  /// The text in a cell; empty for null.
  const std::string& text(const std::string& cell) const;
  bool is_null(const std::string& cell) const;
  /// Whether a cell holds this text, as the catalogue compares texts; null holds none.
  bool is(const std::string& cell, const std::string& text) const;
};

using Rows = std::vector<Row>;
using Number = std::function<double(const Row&)>;
using Test = std::function<bool(const Row&)>;

/// Texts that the catalogue takes for one have one key: case and blanks at the end do not count.
std::string text_key(const std::string& text);

/// The rows of one table.
Rows of(const Rows& rows, const std::string& table);
Rows where(Rows rows, const Test& keeps);
/// The rows whose day lies from one day to another, both included.
Rows within(Rows rows, const std::string& day, const std::string& from, const std::string& to);
/// The rows with one more cell, reckoned from the others.
Rows with(Rows rows, const std::string& cell, const Number& reckoned);
/// Each pair of rows whose cells are equal and not null. The right row's cells get a prefix.
Rows joined(const Rows& left, const std::string& left_cell, const Rows& right,
            const std::string& right_cell, const std::string& prefix);
/// The left rows that `joined` leaves out.
Rows unmatched(const Rows& left, const std::string& left_cell, const Rows& right,
               const std::string& right_cell);

using Reckonings = std::vector<std::pair<std::string, Number>>;
/// One row for each combination of keys, with sums and means. Nulls do not count, and the sum of
/// nothing but nulls is null.
Rows grouped(const Rows& rows, const std::vector<std::string>& keys, const Reckonings& sums,
             const Reckonings& means = {});

/// The sum over rows; nulls do not count. 0 for none.
double sum(const Rows& rows, const Number& of);
/// Reads one cell.
Number cell(const std::string& name);

}  // namespace tela::testing
