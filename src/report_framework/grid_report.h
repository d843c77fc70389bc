// The life of a report screen: a period and often one filter value in, one SQL text, its rows as
// text in a grid, totals and bands read back from the grid, and a preview of the same rows through
// a staging table.
//
// The pieces stand here once, each usable by itself; a screen puts them together in its own order
// and states what is its own: controls, columns, SQL, messages, staging row.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report_framework/grid_columns.h"
#include "shell/display.h"
#include "shell/screen.h"

namespace tela {

/// The masks of dates in SQL; the two print alike, and statements use the one or the other.
inline constexpr std::string_view kSqlDateMask = "dd/mmm/yyyy";

/// The colours of the row bands, 0xBBGGRR.
struct BandColours {
  std::uint32_t even = 14199442;
  std::uint32_t odd = 16777215;
};

/// The columns that a band covers.
struct BandSpan {
  int first = 0;
  int last = 0;
};

/// How a fill sizes its grid: to the records exactly, or by a row added for each record, which
/// keeps one blank row behind the last.
enum class FillSize { exact, blank_row_behind };

// --- the pieces ----------------------------------------------------------------------------------

void set_widths(Grid& grid, const GridColumns& columns);
/// Writes each header into row 0.
void write_headings(Grid& grid, const GridColumns& columns);
/// Clears the grid and sets it to 2 rows.
void empty_grid(Grid& grid);
/// Writes the recordset, from its first row, into the grid from row 1 on. Returns one more than the
/// number of rows written. Throws GridError when the rows do not fit a grid; the grid is then
/// empty.
int fill_grid(Grid& grid, Recordset& rs, const GridColumns& columns,
              FillSize size = FillSize::exact);
/// Sums a column through the box's text, so that each step is rounded by the mask. Rows that
/// `counts` refuses are passed over.
void total_columns(Form& form, const Grid& grid, const GridColumns& columns,
                   const std::function<bool(int row)>& counts = {});
/// Paints every row whose first cell is not empty.
void paint_bands(Grid& grid, BandSpan span, BandColours colours = {});

/// One staging run: what empties the table, and the statement for a grid row; an empty statement
/// passes the row over.
struct Staging {
  std::string clear;
  std::function<std::string(int row)> insert;
};

/// How a staging run divides its statements among transactions.
enum class StagingTransactions { one, clear_apart };

void stage_rows(AppState& app, const Grid& grid, const Staging& staging,
                StagingTransactions transactions);

/// The cell's text, with its quotes doubled for a SQL literal and its outer blanks taken off.
std::string quoted_cell(const Grid& grid, int row, int col);
/// The cells of the columns `first` to `last` as they stand, with commas between them.
std::string bare_cells(const Grid& grid, int row, int first, int last);
/// A day-first date in a cell, under another mask. Throws std::runtime_error if it is no date.
std::string date_cell(const Grid& grid, int row, int col, std::string_view mask);

// --- the screen ----------------------------------------------------------------------------------

/// A screen with one report grid, `MSHF`. It is the base of report screens and holds what every one
/// of them has: its columns, the load, Refresh and Close, and the pieces above under the names that
/// the screens' procedures have.
class GridReport : public Screen {
 public:
  /// Today in the pickers, the widths, the headings, then what the screen's `fill_lists` adds.
  void load() override;

 protected:
  GridReport(AppState& app, std::string name, std::string caption, std::vector<Control> controls,
             GridColumns columns, BandSpan bands);

  /// Fills the screen's combos at load. Most screens have a fixed list of counters, or one query.
  virtual void fill_lists() {}

  const GridColumns& columns() const { return columns_; }
  Grid& grid() { return form().grid("MSHF"); }

  void RowHeading() { write_headings(grid(), columns_); }
  void ChangeCellColour() { paint_bands(grid(), bands_); }
  void TotalAll() { total_columns(form(), grid(), columns_); }
  /// Writes `Rs` into the grid and leaves `RowNo` one behind the last row written.
  void FillGrid();

  /// `FromDate` and `ToDate` from the two pickers.
  void take_period(std::string_view first = "DTP1", std::string_view second = "DTP2",
                   std::string_view mask = kSqlDateMask);
  /// The text of the filter box `Combo1`, trimmed.
  std::string filter() const;
  /// Adds the first field of every row of a query to a combo, as read.
  void fill_combo(std::string_view combo, std::string_view sql);
  /// A picker's date under a mask, for `FromDate` and `ToDate`.
  std::string picked_date(std::string_view picker, std::string_view mask = kSqlDateMask) const;
  /// If the control's text is blank, says so, moves the focus there and returns true.
  bool refuse_blank(std::string_view control, const std::string& text, Icon icon);
  /// If the first picker is later than the second, says so, moves the focus and returns true.
  bool refuse_reversed(std::string_view first, std::string_view second, const std::string& text,
                       Icon icon);
  /// Asks a question with OK and Cancel; true for OK.
  bool ask(const std::string& question);
  void tell(const std::string& text, Icon icon);

  /// Takes the counter out of `Combo1` into `tCounter`; nothing for "ALL COUNTER".
  std::optional<std::string> take_counter();
  /// Writes the summary labels from `Rs` and the grid; a label whose source is not there stays.
  void write_bill_labels();

  /// `cmdRefresh`: the screen is closed and shown as new. `cmdClose`: it is closed.
  void refresh_on(std::string_view button);
  void close_on(std::string_view button);
  /// A double click on a row with a number above 0 in `col` hands it over as the sale bill and
  /// opens `target`.
  void drill_down_on(std::string_view grid, int col, const std::string& target);

 private:
  GridColumns columns_;
  BandSpan bands_;
};

}  // namespace tela
