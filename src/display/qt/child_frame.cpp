#include "display/qt/child_frame.h"

#include <QCloseEvent>

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

}  // namespace tela
