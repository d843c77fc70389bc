// The main window `MDIReport`: the frame around the report screens, with its menus, toolbar and
// button panels, all as the logic declares them.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <string>

#include "display/qt/desktop_settings.h"
#include "display/qt/user_events.h"

class QActionGroup;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QToolButton;

namespace tela {

class MainWindow;

class MainFrame : public QMainWindow {
  Q_OBJECT

 public:
  /// `exit` is called when the user closes the frame.
  MainFrame(MainWindow& main, UserEvents& events, DesktopSettings& settings,
            std::function<void()> exit);

  /// Shows the present state of menus and panels.
  void mirror();
  QMdiArea& area() { return *area_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void add_menus();
  void add_toolbar();
  QWidget* make_panels();
  void add_status_bar();
  void add_keys();
  void fill_window_menu(QMenu& menu);
  void scale_text(int percent);
  /// Opens the first menu, as F10 does everywhere.
  void open_menus();
  void show_keys();
  void show_about();

  MainWindow& main_;
  UserEvents& events_;
  DesktopSettings& settings_;
  std::function<void()> exit_;
  QMdiArea* area_;
  QToolButton* windows_ = nullptr;  // the list of open windows
  std::map<std::string, QMenu*> menus_;
  std::map<std::string, QAction*> entries_;
  std::map<std::string, QWidget*> panels_;
};

}  // namespace tela
