// The table view of a screen's grid: widths, copying, finding. It changes no cell.
#pragma once

#include <QTableView>

#include "display/qt/desktop_settings.h"
#include "display/qt/grid_model.h"

namespace tela {

class GridView : public QTableView {
  Q_OBJECT

 public:
  /// `key` names the grid in the settings, where pulled column widths are kept.
  GridView(DesktopSettings& settings, QString key, QWidget* parent = nullptr);

  /// Shows `grid`; null shows nothing, ahead of the grid's end.
  void set_grid(const Grid* grid);
  /// Shows what has changed in the grid.
  void refresh();

  /// The selected cells as text: a tab between cells, a line a row, hidden columns left out.
  QString selected_text() const;
  void copy_selection() const;

  /// Goes to the next cell behind the current one (before it, if not `forward`) that holds `text`
  /// in any case of letters, around the end if need be. False if there is none.
  bool find(const QString& text, bool forward);

  /// Forgets the widths that the user has pulled.
  void reset_columns();

  /// As wide as all columns, and a dozen rows high.
  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void adopt_font();
  void apply_widths();
  /// Where the columns are a little wider than the window, those with room to spare give way, so
  /// that all are seen.
  void squeeze_columns();
  void column_pulled(int column, int pixels);
  double pixels_per_twip() const;
  bool holds(int cell, const QString& text) const;

  DesktopSettings& settings_;
  QString key_;
  const Grid* grid_ = nullptr;
  GridModel* model_;
  PulledColumns pulled_;
  bool sizing_ = false;  // widths are being set by the program, not by the user
};

}  // namespace tela
