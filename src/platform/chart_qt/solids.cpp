#include "platform/chart_qt/solids.h"

#include "platform/chart_qt/chart_look.h"

#include <algorithm>
#include <cmath>

namespace tela {

namespace {

QPen edge_pen(const QColor& colour) {
  QPen pen(colour.darker(150), 1);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen;
}

// The face that an edge leaves. The light comes from above: level faces are bright, upright ones
// dark.
void paint_face(QPainter& painter, QPointF from, QPointF to, QPointF depth, const QColor& colour) {
  const QPointF along = to - from;
  const double length = std::hypot(along.x(), along.y());
  if (length == 0) return;
  const double level = std::abs(along.x()) / length;
  painter.setPen(edge_pen(colour));
  painter.setBrush(level > 0.5 ? tinted(colour, 0.6 * (level - 0.5))
                               : colour.darker(static_cast<int>(150 - 100 * level)));
  painter.drawPolygon(QPolygonF({from, to, to + depth, from + depth}));
}

double doubled_area(const QPolygonF& outline) {
  double area = 0;
  for (int i = 0; i < outline.size(); ++i) {
    const QPointF a = outline[i];
    const QPointF b = outline[(i + 1) % outline.size()];
    area += a.x() * b.y() - b.x() * a.y();
  }
  return area;
}

}  // namespace

void paint_solid(QPainter& painter, const QPolygonF& front, QPointF depth, const QColor& colour) {
  const double turn = doubled_area(front) < 0 ? -1 : 1;
  std::vector<std::pair<QPointF, QPointF>> seen;
  for (int i = 0; i < front.size(); ++i) {
    const QPointF from = front[i];
    const QPointF to = front[(i + 1) % front.size()];
    // The outer side of the edge looks the way the solid reaches back: the face behind it is seen.
    const QPointF outward(turn * (to.y() - from.y()), turn * (from.x() - to.x()));
    if (QPointF::dotProduct(outward, depth) > 0) seen.emplace_back(from, to);
  }
  // What stands further to the right stands in front of what reaches back over it.
  std::sort(seen.begin(), seen.end(), [](const auto& a, const auto& b) {
    return a.first.x() + a.second.x() < b.first.x() + b.second.x();
  });
  for (const auto& [from, to] : seen) paint_face(painter, from, to, depth, colour);
  painter.setPen(edge_pen(colour));
  painter.setBrush(colour);
  painter.drawPolygon(front);
}

void paint_ribbon(QPainter& painter, const QPolygonF& line, QPointF depth, const QColor& colour) {
  for (int i = 0; i + 1 < line.size(); ++i)
    paint_face(painter, line[i], line[i + 1], depth, colour);
}

}  // namespace tela
