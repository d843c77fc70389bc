#include "platform/chart_qt/flat_series.h"

#include <QAreaSeries>
#include <QBarSet>
#include <QLineSeries>
#include <QScatterSeries>
#include <QStackedBarSeries>

#include "platform/chart_qt/chart_look.h"
#include "platform/chart_qt/joined_points.h"

namespace tela {

namespace {

void add(QChart& chart, QAbstractSeries* series) {
  chart.addSeries(series);
  for (QAbstractAxis* axis : chart.axes()) series->attachAxis(axis);
}

// One set for each colour, with the rows that have it; elsewhere its bars have no height. The sets
// are stacked, so that each row's bar stands in the middle of its place.
void add_bars(QChart& chart, const std::vector<double>& values, double width, double white) {
  auto* bars = new QStackedBarSeries;
  bars->setBarWidth(width);
  const auto count = static_cast<int>(values.size());
  for (int colour = 0; colour < std::min(count, kRowColours); ++colour) {
    auto* set = new QBarSet({});
    const QColor fill = row_colour(colour);
    set->setColor(tinted(fill, white));
    set->setPen(QPen(fill.darker(130), 1));
    for (int row = 0; row < count; ++row)
      set->append(row % kRowColours == colour ? values[static_cast<std::size_t>(row)] : 0);
    bars->append(set);
  }
  add(chart, bars);
}

void add_line(QChart& chart, const QPolygonF& points, double thickness) {
  auto* line = new QLineSeries;
  line->append(points);
  QPen pen(kChartLine, thickness);
  pen.setJoinStyle(Qt::RoundJoin);
  line->setPen(pen);
  add(chart, line);
}

void add_area(QChart& chart, const QPolygonF& points) {
  auto* upper = new QLineSeries;
  upper->append(points);
  auto* lower = new QLineSeries;
  for (const QPointF& point : points) lower->append(point.x(), 0);
  auto* area = new QAreaSeries(upper, lower);
  upper->setParent(area);
  lower->setParent(area);
  area->setPen(QPen(kChartLine, 2));
  QColor fill = row_colour(4);
  fill.setAlpha(150);
  area->setBrush(fill);
  add(chart, area);
}

void add_points(QChart& chart, const std::vector<double>& values, double size) {
  const auto count = static_cast<int>(values.size());
  for (int colour = 0; colour < std::min(count, kRowColours); ++colour) {
    auto* points = new QScatterSeries;
    points->setMarkerSize(size);
    points->setColor(row_colour(colour));
    points->setBorderColor(row_colour(colour).darker(160));
    for (int row = colour; row < count; row += kRowColours)
      points->append(row, values[static_cast<std::size_t>(row)]);
    add(chart, points);
  }
}

}  // namespace

void add_flat_series(QChart& chart, ChartType type, const std::vector<double>& values) {
  constexpr double kTint = 0.4;
  constexpr double kPoint = 9;
  const double bar = bar_width(chart.plotArea().width() / static_cast<double>(values.size()));
  switch (type) {
    case ChartType::line_2d:
      add_line(chart, joined(values), 2.5);
      return add_points(chart, values, kPoint);
    case ChartType::area_2d:
      add_area(chart, joined(values));
      return add_points(chart, values, kPoint);
    case ChartType::step_2d:
      add_bars(chart, values, 1, kTint);
      return add_line(chart, stepped(values), 2.5);
    case ChartType::combination_2d:
      add_bars(chart, values, bar, kTint);
      add_line(chart, joined(values), 2.5);
      return add_points(chart, values, kPoint);
    case ChartType::xy_2d:
      return add_points(chart, values, 1.5 * kPoint);
    default:
      return add_bars(chart, values, bar, 0);
  }
}

}  // namespace tela
