#include "display/qt/frame_area.h"

#include <QPainter>

#include "display/qt/look.h"

namespace tela {

namespace {

// The drawing is four units wide and three high, and takes this part of the area's height.
constexpr double kPictureShare = 0.6;

}  // namespace

FrameArea::FrameArea() {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
}

void FrameArea::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const QRect whole = viewport()->rect();
  painter.fillRect(whole, kFrameColour);
  const int height = static_cast<int>(whole.height() * kPictureShare);
  QRect place(0, 0, height * 4 / 3, height);
  place.moveBottomRight(whole.bottomRight());
  paint_background(painter, "frame", place);
}

}  // namespace tela
