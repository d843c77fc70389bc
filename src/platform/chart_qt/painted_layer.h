// A layer of a chart's scene that a function paints, above what Qt Charts draws.
#pragma once

#include <QGraphicsItem>
#include <QPainter>
#include <functional>
#include <utility>

namespace tela {

class PaintedLayer : public QGraphicsItem {
 public:
  PaintedLayer(const QRectF& place, std::function<void(QPainter&)> paint)
      : place_(place), paint_(std::move(paint)) {
    setZValue(1);
  }

  QRectF boundingRect() const override { return place_; }
  void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override {
    painter->setRenderHint(QPainter::Antialiasing);
    paint_(*painter);
  }

 private:
  QRectF place_;
  std::function<void(QPainter&)> paint_;
};

}  // namespace tela
