// A screen's grid as Qt's table views read it. It holds no cell of its own.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "shell/grid.h"

namespace tela {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Shows `grid`, which must stay alive until the next call; null shows nothing.
  void set_grid(const Grid* grid);
  /// Tells the views what has changed since the last call.
  void refresh();

  /// The row of the grid behind a row of the view: row 0 is the header.
  static int grid_row(int view_row) { return view_row + 1; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  void find_figures();
  QString heading(int col) const;
  QVariant background(int row, int col) const;
  Qt::Alignment alignment(int col) const;

  const Grid* grid_ = nullptr;
  std::uint64_t revision_ = 0;
  int rows_ = 0;               // as the views know them
  std::vector<bool> figures_;  // whether a column holds figures alone
};

}  // namespace tela
