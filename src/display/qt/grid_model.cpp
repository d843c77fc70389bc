#include "display/qt/grid_model.h"

#include <QColor>
#include <algorithm>

#include "platform/text/number_text.h"

namespace tela {

namespace {

// A colour of the logic is 0xBBGGRR.
QColor colour(std::uint32_t bgr) {
  return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                static_cast<int>((bgr >> 16) & 0xFF));
}

const QColor kFixedColumn(225, 234, 239);
const QColor kLackingRow(255, 226, 189);  // of an amount that the totals lack

}  // namespace

void GridModel::set_grid(const Grid* grid) {
  beginResetModel();
  grid_ = grid;
  rows_ = grid_ ? std::max(0, grid_->Rows() - 1) : 0;
  revision_ = grid_ ? grid_->revision() : 0;
  find_figures();
  endResetModel();
}

void GridModel::refresh() {
  if (!grid_ || grid_->revision() == revision_) return;
  if (grid_->Rows() - 1 != rows_) return set_grid(grid_);
  revision_ = grid_->revision();
  find_figures();
  emit headerDataChanged(Qt::Horizontal, 0, grid_->Cols() - 1);
  if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, grid_->Cols() - 1));
}

void GridModel::find_figures() {
  const int cols = grid_ ? grid_->Cols() : 0;
  figures_.assign(static_cast<std::size_t>(cols), false);
  for (int col = 0; col < cols; ++col) {
    bool any = false;
    bool all = true;
    for (int row = 1; all && row < grid_->Rows(); ++row) {
      const std::string& cell = grid_->TextMatrix(row, col);
      if (cell.empty()) continue;
      any = true;
      all = is_numeric(cell);
    }
    figures_[static_cast<std::size_t>(col)] = any && all;
  }
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || !grid_ ? 0 : grid_->Cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = grid_row(index.row());
  const int col = index.column();
  if (!grid_ || !index.isValid() || row >= grid_->Rows()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(grid_->TextMatrix(row, col));
    case Qt::TextAlignmentRole:
      return static_cast<int>(alignment(col));
    case Qt::BackgroundRole:
      return background(row, col);
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (!grid_ || orientation != Qt::Horizontal || grid_->Rows() == 0) return {};
  if (role == Qt::DisplayRole) return heading(section);
  if (role == Qt::TextAlignmentRole) return static_cast<int>(alignment(section));
  return {};
}

// A list that was refused may have lost its header; its columns keep their names.
QString GridModel::heading(int col) const {
  const auto& names = grid_->Headings();
  bool headed = names.empty();
  for (int other = 0; !headed && other < grid_->Cols(); ++other)
    headed = !grid_->TextMatrix(0, other).empty();
  return QString::fromStdString(headed ? grid_->TextMatrix(0, col)
                                       : names[static_cast<std::size_t>(col)]);
}

QVariant GridModel::background(int row, int col) const {
  if (grid_->HasWideCell(row)) return kLackingRow;
  if (col < grid_->FixedCols()) return kFixedColumn;
  const auto band = grid_->Bands().find(row);
  if (band == grid_->Bands().end()) return {};
  if (col < band->second.first_col || col > band->second.last_col) return {};
  return colour(band->second.colour);
}

Qt::Alignment GridModel::alignment(int col) const {
  return (figures_[static_cast<std::size_t>(col)] ? Qt::AlignRight : Qt::AlignLeft) |
         Qt::AlignVCenter;
}

}  // namespace tela
