// The desktop for a test: the whole program on a catalogue that answers from memory, and the user's
// hands on its windows.
#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "display/qt/login_window.h"
#include "display/qt/main_frame.h"
#include "display/qt/qt_display.h"
#include "screens/registry.h"
#include "shell/windows.h"

/// Lets a failed comparison show its texts.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

namespace tela::testing {

/// What the catalogue behind the test answers.
struct Shop {
  bool reachable = true;
  int bills = 3;         ///< bills 1 to this number, each over its number in rupees, paid in cash
  bool is_slow = false;  ///< the bills come when nobody waits for them any more
  bool is_second_huge = false;  ///< bill 2 comes to 250000 rupees, which no text of 8 places holds
};

/// What a message box showed.
struct SeenBox {
  QString text;
  QString title;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  bool asks = false;
};

class Desktop {
 public:
  explicit Desktop(std::span<const ScreenEntry> registry = all_screens());

  /// Types the name and this password, with Enter behind each.
  void log_in(const QString& password = "kestr472");
  /// Logs in and opens the screen by its name.
  ScreenView& open(const std::string& screen);

  MainFrame& frame() { return *display_.main_frame(); }
  LoginWindow* login() { return display_.login_window(); }
  QtDisplay& display() { return display_; }
  Windows& windows() { return windows_; }
  DesktopSettings& settings() { return *settings_; }

  /// The open window of a screen; null if there is none.
  ScreenView* view(const std::string& screen);

  /// Runs `action` and answers the one message box that must come of it.
  SeenBox box_of(const std::function<void()>& action,
                 QMessageBox::StandardButton answer = QMessageBox::Ok);

  Shop shop;
  std::string first_run_hint;
  bool ended = false;

 private:
  QTemporaryDir folder_;
  std::unique_ptr<DesktopSettings> settings_;
  QtDisplay display_;
  Platform platform_;
  Windows windows_;
  AppState app_;
};

/// Waits until `widget` has the focus, which comes back to it a moment after a box has gone.
inline bool gets_focus(const QWidget& widget) {
  return QTest::qWaitFor([&] { return widget.hasFocus(); }, 1000);
}

/// The widget of that name below `parent`. Fails the test if it is not there.
template <class Widget>
Widget& child(QObject& parent, const char* name) {
  auto* found = parent.findChild<Widget*>(name);
  if (!found) throw std::runtime_error(std::string("there is no widget ") + name);
  return *found;
}

}  // namespace tela::testing
