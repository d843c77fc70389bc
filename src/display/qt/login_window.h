// The login `frmownerpassword`: its picture, its two boxes, and below them, in small print, what a
// user needs to know who cannot get in.
#pragma once

#include <QWidget>

#include "display/qt/screen_view.h"

class QLabel;

namespace tela {

class OwnerLogin;

class LoginWindow : public QWidget {
  Q_OBJECT

 public:
  LoginWindow(OwnerLogin& login, UserEvents& events, DesktopSettings& settings);

  ScreenView& view() { return *view_; }
  /// What stands in small print; nothing for an empty text.
  void set_hint(const QString& hint);

 protected:
  void paintEvent(QPaintEvent* event) override;
  /// The same as the button that cancels.
  void closeEvent(QCloseEvent* event) override;

 private:
  OwnerLogin* login_;
  UserEvents& events_;
  ScreenView* view_;
  QLabel* hint_;
};

}  // namespace tela
