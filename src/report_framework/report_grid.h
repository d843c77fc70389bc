// The grid of a report: its columns, bands and totals, and what is done with them. A screen has one
// as a member for each grid that it shows.
//
// The life of it is one call: `show` runs a statement and leaves the grid filled, headed, painted
// and totalled. Totals, bands, staging rows and exports read the grid's text, so each cell's mask
// has rounded what they see.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "report_framework/grid_columns.h"
#include "shell/app_state.h"

namespace tela {

/// The painted columns of each row that has a text in its first cell, in two alternating colours,
/// 0xBBGGRR.
struct RowBands {
  int first = 0;
  int last = 0;
  std::uint32_t even = 14199442;
  std::uint32_t odd = 16777215;
};

/// How a fill sizes its grid: to the records exactly, or by a row added for each record, which
/// keeps one blank row behind the last.
enum class FillSize { exact, blank_row_behind };

/// What a report grid is, apart from its columns.
struct GridLook {
  std::string name = "MSHF";           ///< of the control
  std::optional<RowBands> bands = {};  ///< nothing: no row is painted
  FillSize size = FillSize::exact;
  std::optional<int> counted_by = {};  ///< only rows whose number in this column is above 0 count
                                       ///< in the totals; nothing: all rows count
  bool headed_at_load = true;          ///< false: the headings come with the first rows
  bool blank_row_counts = false;   ///< the blank row behind the last is summed as one of the rows
  std::string whole_amounts = {};  ///< the reports that show amounts too wide for this list
};

class ReportGrid {
 public:
  /// Sets the widths and, if the look says so, writes the headings. `form` must outlive this
  /// object. Throws std::logic_error if the grid or a total box is not among its controls, or if
  /// the grid has another number of columns.
  ReportGrid(Form& form, GridColumns columns, GridLook look = {});

  Grid& cells() const { return form_->grid(look_.name); }
  const GridColumns& columns() const { return columns_; }
  const std::string& cell(int row, int col) const { return cells().TextMatrix(row, col); }
  /// Val of a cell.
  double number(int row, int col) const;

  /// Empties every cell, the headings too, and leaves 2 rows.
  void clear() const;
  /// Clears the grid, runs `sql` on `Rs` and shows its rows. `with_rows` runs between the fill and
  /// the closing of `Rs`, for what else is read of it. A failure leaves the grid empty, without
  /// its headings. Throws what the database throws, and GridError when the rows do not fit a grid.
  void show(AppState& app, std::string_view sql,
            const std::function<void(Recordset&)>& with_rows = {}) const;

  // The steps of `show`, for a screen that orders them otherwise.

  /// Writes the recordset from its first row into the grid, from row 1 on. Leaves `RowNo` one
  /// behind the last row written. Throws GridError, the grid then being empty.
  void fill(AppState& app, Recordset& rs) const;
  /// Where cells of totalled columns came as asterisks: reads the statement of the list again, with
  /// room for every amount, and notes what the totals lack. Where nothing shows notes it reads
  /// nothing. A failure or other rows leave the amount unknown, and the note says so.
  void note_lacking(AppState& app, std::string_view sql) const;
  /// Headings, bands and totals.
  void finish() const;
  /// Writes each header into row 0.
  void RowHeading() const;
  /// Sums each column that has a total box through the text of the box, so that each step is
  /// rounded by its mask. Without a row to sum the boxes show "0"; where the blank row behind the
  /// last counts, they then show "0.00".
  void TotalAll() const;
  void ChangeCellColour() const;

 private:
  Form* form_;
  GridColumns columns_;
  GridLook look_;
};

}  // namespace tela
