// The area of the main window in which the report screens lie, with its background picture.
#pragma once

#include <QMdiArea>

namespace tela {

class FrameArea : public QMdiArea {
  Q_OBJECT

 public:
  FrameArea();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tela
