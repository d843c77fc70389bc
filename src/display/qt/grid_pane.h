// A grid with what belongs around it: its heading, and the bar that finds a text in it.
#pragma once

#include <QWidget>

#include "display/qt/grid_view.h"

class QLabel;
class QLineEdit;

namespace tela {

class GridPane : public QWidget {
  Q_OBJECT

 public:
  GridPane(DesktopSettings& settings, const QString& key, const QString& heading,
           QWidget* parent = nullptr);

  GridView& view() { return *view_; }
  /// Shows what stands beside the cells: the line under the list, and the words in place of rows.
  void show_words(const Grid& grid);
  /// Shows the find bar and puts the focus there.
  void open_find();

 protected:
  /// Escape in the find bar closes it.
  void keyPressEvent(QKeyEvent* event) override;
  /// Keeps the words in the middle of the empty list.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* make_find_bar();
  void find(bool forward);
  void close_find();

  GridView* view_;
  QLineEdit* wanted_;
  QLabel* result_;
  QWidget* bar_;
  QLabel* empty_words_;
  QLabel* note_;
};

}  // namespace tela
