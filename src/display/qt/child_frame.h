// The frame of a report screen inside the main window.
#pragma once

#include <QMdiSubWindow>
#include <functional>

#include "display/qt/screen_view.h"

namespace tela {

class ChildFrame : public QMdiSubWindow {
  Q_OBJECT

 public:
  /// Takes `view` over. `closed` is called when the user closes the frame, and decides what comes
  /// of it.
  ChildFrame(ScreenView* view, std::function<void()> closed);

  ScreenView& view() const { return *view_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  /// Escape and Ctrl+F4 close the frame, where nothing in it makes use of them.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  ScreenView* view_;
  std::function<void()> closed_;
};

}  // namespace tela
