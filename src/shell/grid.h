// The grid of a screen: first of all a table of strings, row 0 the header. Totals, staging rows,
// exports and drill-down keys are read back from it; a window only mirrors it.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tela {

/// A cell or a row count outside the grid's limits. A failure of the action, not of the program.
class GridError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The last row number that a grid can have: row counters are 16-bit signed.
inline constexpr int kLastGridRow = 32767;

/// The painted part of a row.
struct RowBand {
  int first_col = 0;
  int last_col = 0;
  std::uint32_t colour = 0;  ///< 0xBBGGRR, blue in the high byte
  bool operator==(const RowBand&) const = default;
};

class Grid {
 public:
  /// A fresh grid has 2 rows of empty cells, row 0 being the header. `fixed_cols` columns at the
  /// left are shown as headers too.
  explicit Grid(int cols, int fixed_cols = 0);

  int Rows() const { return static_cast<int>(cells_.size()) / cols_; }
  int Cols() const { return cols_; }
  int FixedCols() const { return fixed_cols_; }

  /// Adds empty rows at the end or drops the last ones. Throws GridError for a negative count and
  /// for one that goes past row kLastGridRow.
  void SetRows(int rows);
  /// Appends one empty row.
  void AddItem() { SetRows(Rows() + 1); }

  /// The text of a cell. Throws GridError if there is no such cell.
  const std::string& TextMatrix(int row, int col) const { return cells_[index(row, col)]; }
  void SetTextMatrix(int row, int col, std::string text);

  /// A column's width in twips (1/1440 inch); 0 hides the column, which still holds its text.
  int ColWidth(int col) const { return widths_.at(static_cast<std::size_t>(col)); }
  void SetColWidth(int col, int twips);

  /// Empties every cell, the header's too, and takes the paint off. The row count stays.
  void Clear();

  /// The row under the selection.
  int Row() const { return row_; }
  void SetRow(int row) { row_ = row; }

  void Paint(int row, RowBand band);
  const std::map<int, RowBand>& Bands() const { return bands_; }

  // What a window shows beside the cells, and a script does not tell. `Clear` empties the marks and
  // the words.

  /// The names of the columns, shown where row 0 is empty.
  const std::vector<std::string>& Headings() const { return headings_; }
  void SetHeadings(std::vector<std::string> headings);
  /// Cells (row, column) whose amount is too wide to be shown and counts as 0.
  const std::set<std::pair<int, int>>& WideCells() const { return wide_cells_; }
  void MarkWide(int row, int col);
  bool HasWideCell(int row) const;
  /// The line under the list: what its totals lack.
  const std::string& Note() const { return note_; }
  void SetNote(std::string note);
  /// What stands in the place of a list without rows: why it has none.
  const std::string& EmptyWords() const { return empty_words_; }
  void SetEmptyWords(std::string words);
  /// Whether no cell below the header holds a text.
  bool IsEmpty() const;

  /// Another number after every change of what the grid shows, so that a window knows when to look.
  std::uint64_t revision() const { return revision_; }

 private:
  std::size_t index(int row, int col) const;

  int cols_;
  int fixed_cols_;
  int row_ = 0;
  std::uint64_t revision_ = 0;
  std::vector<std::string> cells_;  // row by row
  std::vector<int> widths_;
  std::map<int, RowBand> bands_;
  std::vector<std::string> headings_;
  std::set<std::pair<int, int>> wide_cells_;
  std::string note_;
  std::string empty_words_;
};

}  // namespace tela
