// Staging: the rows of a report grid written into a table of the catalogue, for a report layout or
// a further statement. The values are the grid's text, so a report shows the figures exactly as the
// screen does.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "report_framework/report_grid.h"

namespace tela {

/// One row of a report grid, read for a statement. What cannot stand in one, such as the asterisks
/// of an amount too wide for its column, throws ValueError with the row and the column.
class GridRow {
 public:
  GridRow(const ReportGrid& grid, int row) : grid_(&grid), row_(row) {}

  /// The row's own number, as a value.
  std::string row_number() const { return std::to_string(row_); }
  /// A cell as it stands.
  const std::string& cell(int col) const { return grid_->cell(row_, col); }
  /// A cell as a text literal, without the blanks around it.
  std::string text(int col) const;
  /// A cell as a number, exactly as it stands; an empty one is null.
  std::string number(int col) const;
  /// The numbers of the columns `first` to `last`, with commas between them.
  std::string numbers(int first, int last) const;
  /// A day-first date of a cell as a literal under the mask of statements; an empty cell is null.
  std::string date(int col) const;
  /// A time of a cell as a literal "HH:MM:SS"; an empty cell is null.
  std::string time(int col) const;

 private:
  [[noreturn]] void refuse(int col, const std::string& reason) const;

  const ReportGrid* grid_;
  int row_;
};

/// How a staging run divides its statements among transactions.
enum class StagingTransactions {
  one,         ///< one holds the delete and the inserts
  clear_apart  ///< the delete is committed before the inserts begin
};

struct Staging {
  std::string clear;             ///< the statement that empties the table
  std::string insert;            ///< the insert up to its opening bracket
  int counted_by = 0;            ///< a row without a number above 0 in this column is passed over
  bool any_text_counts = false;  ///< only a row without a text in that column is passed over
  std::function<std::vector<std::string>(const GridRow&)> values = {};
  StagingTransactions transactions = StagingTransactions::one;
  /// Told of a row that cannot be stored, which is then passed over. Nothing: such a row ends the
  /// run.
  std::function<void(const std::runtime_error&)> passed_over = {};
};

/// Empties the table and inserts the grid's rows. Throws ValueError and what the database throws;
/// what was not committed is then undone.
void stage_rows(AppState& app, const ReportGrid& grid, const Staging& staging);

}  // namespace tela
