#include "display/qt/child_frame.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "display/qt/look.h"

namespace tela {

ChildFrame::ChildFrame(ScreenView* view, std::function<void()> closed)
    : view_(view), closed_(std::move(closed)) {
  setObjectName(QString::fromStdString(view->screen()->name()));
  setWindowTitle(QString::fromStdString(view->screen()->caption()));
  setWindowIcon(program_icon());
  setWidget(view);
}

void ChildFrame::closeEvent(QCloseEvent* event) {
  event->ignore();
  closed_();
}

void ChildFrame::keyPressEvent(QKeyEvent* event) {
  const bool is_close =
      event->key() == Qt::Key_Escape ||
      (event->key() == Qt::Key_F4 && event->modifiers().testFlag(Qt::ControlModifier));
  if (is_close) return closed_();
  QMdiSubWindow::keyPressEvent(event);
}

}  // namespace tela
