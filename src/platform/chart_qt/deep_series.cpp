#include "platform/chart_qt/deep_series.h"

#include "platform/chart_qt/chart_look.h"
#include "platform/chart_qt/joined_points.h"
#include "platform/chart_qt/solids.h"

namespace tela {

namespace {

void paint_walls(QPainter& painter, const PlotFrame& frame) {
  const QRectF& front = frame.front;
  const QRectF back = front.translated(frame.depth);
  painter.setPen(QPen(kChartGrid, 1));
  painter.setBrush(kChartWall);
  painter.drawRect(back);
  painter.setBrush(kChartWall.darker(104));
  painter.drawPolygon(
      QPolygonF({front.topLeft(), back.topLeft(), back.bottomLeft(), front.bottomLeft()}));
  painter.setPen(QPen(kChartGrid.darker(108), 1));
  for (const double mark : frame.scale.marks()) {
    const QPointF edge(front.left(), frame.y(mark));
    const QPointF corner = edge + frame.depth;
    painter.drawPolyline(QPolygonF({edge, corner, {back.right(), corner.y()}}));
  }
  // The floor lies where the values begin.
  const QPointF left(front.left(), frame.y(0));
  const QPointF right(front.right(), frame.y(0));
  painter.setBrush(kChartWall.darker(110));
  painter.drawPolygon(QPolygonF({left, left + frame.depth, right + frame.depth, right}));
}

QPolygonF on_picture(const QPolygonF& line, const PlotFrame& frame) {
  QPolygonF placed;
  for (const QPointF& point : line) placed.append(frame.at(point.x(), point.y()));
  return placed;
}

// The outline between the line and zero.
QPolygonF down_to_zero(const QPolygonF& line, const PlotFrame& frame) {
  QPolygonF outline = on_picture(line, frame);
  outline.append(frame.at(line.last().x(), 0));
  outline.append(frame.at(line.first().x(), 0));
  return outline;
}

void paint_bars(QPainter& painter, const std::vector<double>& values, const PlotFrame& frame,
                double width, double white) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] == 0) continue;
    const auto row = static_cast<double>(i);
    const QList<QPointF> top = {{row - width / 2, values[i]}, {row + width / 2, values[i]}};
    paint_solid(painter, down_to_zero(top, frame), frame.depth,
                tinted(row_colour(static_cast<int>(i)), white));
  }
}

// The parts above zero and those below it, each a solid of its own.
void paint_area(QPainter& painter, const std::vector<double>& values, const PlotFrame& frame) {
  for (const QPolygonF& part : cut_at_zero(joined(values)))
    paint_solid(painter, down_to_zero(part, frame), frame.depth, row_colour(4));
}

void paint_points(QPainter& painter, const std::vector<double>& values, const PlotFrame& frame) {
  constexpr double kRadius = 4.5;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const QColor colour = row_colour(static_cast<int>(i));
    painter.setPen(QPen(colour.darker(160), 1));
    painter.setBrush(colour);
    painter.drawEllipse(frame.at(static_cast<double>(i), values[i]), kRadius, kRadius);
  }
}

}  // namespace

bool is_deep(ChartType type) {
  switch (type) {
    case ChartType::bar_3d:
    case ChartType::line_3d:
    case ChartType::area_3d:
    case ChartType::step_3d:
    case ChartType::combination_3d:
      return true;
    default:
      return false;
  }
}

void paint_deep(QPainter& painter, ChartType type, const std::vector<double>& values,
                const PlotFrame& frame) {
  const double bar = bar_width(frame.pitch());
  paint_walls(painter, frame);
  switch (type) {
    case ChartType::line_3d:
      paint_ribbon(painter, on_picture(joined(values), frame), frame.depth, kChartLine);
      return paint_points(painter, values, frame);
    case ChartType::area_3d:
      paint_area(painter, values, frame);
      return paint_points(painter, values, frame);
    case ChartType::step_3d:
      return paint_bars(painter, values, frame, 1, 0);
    case ChartType::combination_3d: {
      // The band of the line lies on the front half of the bars.
      paint_bars(painter, values, frame, bar, 0.3);
      paint_ribbon(painter, on_picture(joined(values), frame), frame.depth / 2, kChartLine);
      return paint_points(painter, values, frame);
    }
    default:
      return paint_bars(painter, values, frame, bar, 0);
  }
}

}  // namespace tela
