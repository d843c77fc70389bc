// Rows as the text of T-SQL inserts, many rows a statement.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/database_client.h"

namespace tela {

/// A value as T-SQL reads it back, to the last digit and in every language of the server: a number
/// in the scientific form that makes it a float, a day as '20240105', a text that is not plain
/// ASCII with the N in front.
std::string sql_literal(const Value& value);

/// Collects rows of one table until they make a statement of a sensible size.
class InsertText {
 public:
  /// The most rows of a statement; the server takes 1,000.
  static constexpr std::size_t most_rows = 250;

  InsertText(std::string_view table, const std::vector<std::string>& columns);

  void add(std::span<const Value> row);
  bool full() const { return rows_ == most_rows; }
  bool empty() const { return rows_ == 0; }

  /// The statement for the rows collected, which are then forgotten.
  std::string take();

 private:
  std::string head_;
  std::string values_;
  std::size_t rows_ = 0;
};

}  // namespace tela
