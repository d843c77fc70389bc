#include "display/qt/user_events.h"

#include <QApplication>
#include <utility>

#include "shell/screen.h"

namespace tela {

void UserEvents::run_quietly(const std::function<void()>& event) {
  if (running_) return;
  running_ = true;
  clock_.start();
  try {
    event();
  } catch (const UserActionError&) {
    QApplication::beep();
  }
  finished_();
  running_ = false;
  for (const auto& next : std::exchange(afterwards_, {})) run_quietly(next);
}

void UserEvents::run_afterwards(const std::function<void()>& event) {
  if (running_)
    afterwards_.push_back(event);
  else
    run_quietly(event);
}

void UserEvents::run(const std::function<void()>& event) {
  if (running_) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  run_quietly(event);
  QApplication::restoreOverrideCursor();
}

}  // namespace tela
