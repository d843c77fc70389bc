#include "display/qt/user_events.h"

#include <QApplication>

#include "shell/screen.h"

namespace tela {

void UserEvents::run_quietly(const std::function<void()>& event) {
  if (running_) return;
  running_ = true;
  try {
    event();
  } catch (const UserActionError&) {
    QApplication::beep();
  }
  finished_();
  running_ = false;
}

void UserEvents::run(const std::function<void()>& event) {
  if (running_) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  run_quietly(event);
  QApplication::restoreOverrideCursor();
}

}  // namespace tela
