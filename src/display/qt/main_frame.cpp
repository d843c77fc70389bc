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
  add_text_size_keys();
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
  for (const Menu& menu : main_.menus()) {
    QMenu* shown = menuBar()->addMenu(text(menu.caption));
    shown->setObjectName(text(menu.name));
    menus_[menu.name] = shown;
    for (const MenuEntry& entry : menu.entries) {
      QAction* action = shown->addAction(text(entry.caption), this, [this, name = entry.name] {
        events_.run([&] { main_.click_menu(name); });
      });
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
  auto* windows = new QToolButton;
  windows->setText(tr("Windows"));
  windows->setPopupMode(QToolButton::InstantPopup);
  windows->setAutoRaise(true);
  auto* menu = new QMenu(windows);
  windows->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu] {
    menu->clear();
    fill_window_menu(*menu);
  });
  statusBar()->addPermanentWidget(windows);
  statusBar()->addWidget(new QLabel(tr(
      "Enter moves on   ·   Ctrl+F finds   ·   Ctrl+C copies   ·   Ctrl + and − size the text")));
}

void MainFrame::add_text_size_keys() {
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
