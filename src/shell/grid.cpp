#include "shell/grid.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tela {

namespace {
constexpr int kFreshRows = 2;
constexpr int kDefaultWidth = 960;  // twips
}  // namespace

Grid::Grid(int cols, int fixed_cols)
    : cols_(cols),
      fixed_cols_(fixed_cols),
      cells_(static_cast<std::size_t>(cols) * kFreshRows),
      widths_(static_cast<std::size_t>(cols), kDefaultWidth) {}

void Grid::SetRows(int rows) {
  if (rows < 0 || rows > kLastGridRow + 1)
    throw GridError("A grid cannot have " + std::to_string(rows) + " rows.");
  cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols_));
  bands_.erase(bands_.lower_bound(rows), bands_.end());
  if (row_ >= rows) row_ = 0;
  ++revision_;
}

void Grid::SetTextMatrix(int row, int col, std::string text) {
  cells_[index(row, col)] = std::move(text);
  ++revision_;
}

void Grid::SetColWidth(int col, int twips) {
  widths_.at(static_cast<std::size_t>(col)) = twips;
  ++revision_;
}

void Grid::Paint(int row, RowBand band) {
  bands_[row] = band;
  ++revision_;
}

void Grid::Clear() {
  for (auto& cell : cells_) cell.clear();
  bands_.clear();
  wide_cells_.clear();
  note_.clear();
  empty_words_.clear();
  ++revision_;
}

void Grid::SetHeadings(std::vector<std::string> headings) {
  headings_ = std::move(headings);
  ++revision_;
}

void Grid::MarkWide(int row, int col) {
  wide_cells_.emplace(row, col);
  ++revision_;
}

bool Grid::HasWideCell(int row) const {
  const auto first = wide_cells_.lower_bound({row, std::numeric_limits<int>::min()});
  return first != wide_cells_.end() && first->first == row;
}

void Grid::SetNote(std::string note) {
  note_ = std::move(note);
  ++revision_;
}

void Grid::SetEmptyWords(std::string words) {
  empty_words_ = std::move(words);
  ++revision_;
}

bool Grid::IsEmpty() const {
  return std::all_of(cells_.begin() + std::min<std::ptrdiff_t>(cols_, std::ssize(cells_)),
                     cells_.end(), [](const std::string& cell) { return cell.empty(); });
}

std::size_t Grid::index(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= cols_)
    throw GridError("The grid has no cell (" + std::to_string(row) + ", " + std::to_string(col) +
                    ").");
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
         static_cast<std::size_t>(col);
}

}  // namespace tela
