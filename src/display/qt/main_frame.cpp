#include "display/qt/main_frame.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "display/qt/frame_area.h"
#include "display/qt/look.h"
#include "display/qt/menu_letters.h"
#include "shell/main_window.h"

namespace tela {

namespace {

constexpr int kTextStep = 10;  // per cent
constexpr QSize kToolIcon(32, 32);

QString text(const std::string& words) {
  return QString::fromStdString(words);
}

}  // namespace

MainFrame::MainFrame(MainWindow& main, UserEvents& events, DesktopSettings& settings,
                     std::function<void()> exit)
    : main_(main),
      events_(events),
      settings_(settings),
      exit_(std::move(exit)),
      area_(new FrameArea) {
  setObjectName(text(main.name()));
  resize(1200, 760);  // where the desktop does not maximise
  add_menus();
  add_toolbar();
  add_status_bar();
  add_keys();
  auto* centre = new QWidget;
  auto* row = new QHBoxLayout(centre);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(make_panels());
  row->addWidget(area_, 1);
  setCentralWidget(centre);
  mirror();
}

void MainFrame::add_menus() {
  QString letters = kButtonLetters;
  for (const Menu& menu : main_.menus()) {
    QMenu* shown = menuBar()->addMenu(with_letter(text(menu.caption), letters));
    QString entry_letters;
    shown->setObjectName(text(menu.name));
    menus_[menu.name] = shown;
    for (const MenuEntry& entry : menu.entries) {
      QAction* action = shown->addAction(
          with_letter(text(entry.caption), entry_letters), this,
          [this, name = entry.name] { events_.run([&] { main_.click_menu(name); }); });
      action->setObjectName(text(entry.name));
      entries_[entry.name] = action;
    }
  }
}

void MainFrame::add_toolbar() {
  QToolBar* bar = addToolBar(tr("Toolbar"));
  bar->setObjectName("Toolbar1");
  bar->setMovable(false);
  bar->setIconSize(kToolIcon);
  bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  bar->setContextMenuPolicy(Qt::NoContextMenu);
  bar->toggleViewAction()->setEnabled(false);
  for (const ToolButton& button : main_.toolbar()) {
    QAction* action = bar->addAction(
        drawn_icon(text(button.key)), text(button.caption), this,
        [this, key = button.key] { events_.run([&] { main_.click_toolbar(key); }); });
    action->setObjectName(text(button.key));
  }
}

QWidget* MainFrame::make_panels() {
  auto* place = new QWidget;
  auto* column = new QVBoxLayout(place);
  column->setContentsMargins(0, 0, 0, 0);
  for (const Panel& panel : main_.panels()) {
    auto* shown = new QWidget;
    shown->setObjectName(text(panel.name));
    auto* buttons = new QVBoxLayout(shown);
    for (const MenuEntry& entry : panel.buttons) {
      auto* button = new QPushButton(text(entry.caption));
      button->setObjectName(text(entry.name));
      button->setMinimumHeight(button->sizeHint().height() + 8);
      connect(button, &QPushButton::clicked, this,
              [this, name = entry.name] { events_.run([&] { main_.click_panel(name); }); });
      buttons->addWidget(button);
    }
    buttons->addStretch(1);
    column->addWidget(shown);
    panels_[panel.name] = shown;
  }
  return place;
}

void MainFrame::add_status_bar() {
  windows_ = new QToolButton;
  windows_->setText(tr("Windows"));
  windows_->setToolTip(tr("The open windows  F6"));
  windows_->setPopupMode(QToolButton::InstantPopup);
  windows_->setAutoRaise(true);
  auto* menu = new QMenu(windows_);
  windows_->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu] {
    menu->clear();
    fill_window_menu(*menu);
  });
  statusBar()->addPermanentWidget(windows_);
  statusBar()->addWidget(new QLabel(
      tr("F1 lists the keys   ·   Enter moves on   ·   Ctrl+F finds   ·   Ctrl+C copies")));
}

void MainFrame::add_keys() {
  const auto add = [this](const QKeySequence& keys, auto action) {
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::ApplicationShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
  };
  const auto larger = [this] { scale_text(settings_.text_percent() + kTextStep); };
  add(QKeySequence("Ctrl++"), larger);
  add(QKeySequence("Ctrl+="), larger);
  add(QKeySequence("Ctrl+-"), [this] { scale_text(settings_.text_percent() - kTextStep); });
  add(QKeySequence("Ctrl+0"), [this] { scale_text(100); });
  add(QKeySequence(Qt::Key_F1), [this] { show_keys(); });
  add(QKeySequence(Qt::Key_F6), [this] { windows_->showMenu(); });
  add(QKeySequence(Qt::Key_F10), [this] { open_menus(); });
}

void MainFrame::open_menus() {
  menuBar()->setFocus(Qt::MenuBarFocusReason);
  menuBar()->setActiveAction(menuBar()->actions().first());
}

void MainFrame::show_keys() {
  static constexpr std::pair<const char*, const char*> kKeys[] = {
      {"Enter",
       "goes on to the next field; in the last one it lists; on a row it opens what a "
       "double click opens"},
      {"Alt+letter", "presses the button with that letter underlined, or opens that menu"},
      {"F10", "goes to the menus"},
      {"F6", "lists the open windows; Ctrl+Tab goes to the next one"},
      {"Esc, Ctrl+F4", "closes the window in front"},
      {"T in a date", "is today; ↑ and ↓ change the part at the cursor; F4 shows a calendar"},
      {"Ctrl+1 … Ctrl+4", "both dates: today, this month, last month, this financial year"},
      {"Ctrl+F, F3", "finds a text in the list, and the next one"},
      {"Ctrl+C", "copies the selected cells"},
      {"Ctrl and +, −, 0", "makes all text larger, smaller, normal"},
  };
  QString rows;
  for (const auto& [key, what] : kKeys)
    rows +=
        QStringLiteral("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>").arg(tr(key), tr(what));
  QMessageBox box(this);
  box.setWindowTitle(tr("Keys"));
  box.setText(QStringLiteral("<table cellpadding='3'>%1</table>").arg(rows));
  box.exec();
}

void MainFrame::scale_text(int percent) {
  settings_.set_text_percent(percent);
  set_text_size(settings_.text_percent());
}

void MainFrame::fill_window_menu(QMenu& menu) {
  for (QMdiSubWindow* window : area_->subWindowList(QMdiArea::StackingOrder)) {
    if (!window->isVisible()) continue;
    QAction* action = menu.addAction(window->windowTitle().trimmed(), area_,
                                     [this, window] { area_->setActiveSubWindow(window); });
    action->setCheckable(true);
    action->setChecked(window == area_->activeSubWindow());
  }
  menu.addSeparator();
  menu.addAction(tr("&Tile"), area_, &QMdiArea::tileSubWindows);
  menu.addAction(tr("&Cascade"), area_, &QMdiArea::cascadeSubWindows);
  menu.addSeparator();
  menu.addAction(tr("&Larger Text\tCtrl++"), this,
                 [this] { scale_text(settings_.text_percent() + kTextStep); });
  menu.addAction(tr("&Smaller Text\tCtrl+-"), this,
                 [this] { scale_text(settings_.text_percent() - kTextStep); });
  menu.addAction(tr("&Normal Text\tCtrl+0"), this, [this] { scale_text(100); });
  menu.addSeparator();
  menu.addAction(tr("&Keys\tF1"), this, &MainFrame::show_keys);
  menu.addAction(tr("&About…"), this, &MainFrame::show_about);
}

void MainFrame::show_about() {
  QMessageBox box(this);
  box.setWindowTitle(tr("About"));
  box.setIconPixmap(program_icon().pixmap(64, 64));
  box.setText(tr("<b>Tela Reports</b> %1").arg(QCoreApplication::applicationVersion()));
  box.setInformativeText(tr("The back-office reports of a supermarket."));
  box.exec();
}

void MainFrame::mirror() {
  setWindowTitle(text(main_.caption()));
  for (const Menu& menu : main_.menus()) {
    menus_.at(menu.name)->menuAction()->setEnabled(menu.enabled);
    for (const MenuEntry& entry : menu.entries)
      entries_.at(entry.name)->setEnabled(menu.enabled && entry.enabled);
  }
  for (const auto& [name, panel] : panels_) panel->setVisible(name == main_.visible_panel());
}

void MainFrame::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu;
  fill_window_menu(menu);
  menu.exec(event->globalPos());
}

void MainFrame::closeEvent(QCloseEvent* event) {
  event->ignore();
  events_.run(exit_);
}

}  // namespace tela
