#include "platform/chart_qt/chart_view.h"

#include <QMouseEvent>
#include <QToolTip>

namespace tela {

ChartView::ChartView(QWidget* parent) : QGraphicsView(parent) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setRenderHint(QPainter::Antialiasing);
  setFocusPolicy(Qt::NoFocus);
  setMouseTracking(true);
}

void ChartView::set_chart(const Chart* chart) {
  chart_ = chart;
  if (chart_) refresh();
}

void ChartView::refresh() {
  if (!chart_ || (drawn_ && shown_ == *chart_)) return;
  shown_ = *chart_;
  draw();
}

void ChartView::draw() {
  auto drawn = std::make_unique<DrawnChart>(shown_, viewport()->size(), font());
  setScene(&drawn->scene());
  drawn_ = std::move(drawn);
}

void ChartView::resizeEvent(QResizeEvent* event) {
  QGraphicsView::resizeEvent(event);
  if (drawn_) draw();
}

void ChartView::changeEvent(QEvent* event) {
  QGraphicsView::changeEvent(event);
  if (event->type() == QEvent::FontChange && drawn_) draw();
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  QGraphicsView::mouseMoveEvent(event);
  if (!drawn_) return;
  const QString tip = drawn_->tip_at(mapToScene(event->pos()));
  QToolTip::showText(event->globalPosition().toPoint(), tip, viewport());
}

}  // namespace tela
