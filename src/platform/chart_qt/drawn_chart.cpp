#include "platform/chart_qt/drawn_chart.h"

#include <QCategoryAxis>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QLegend>
#include <QLineSeries>
#include <QValueAxis>
#include <algorithm>
#include <memory>

#include "platform/chart/amount_text.h"
#include "platform/chart_qt/axis_labels.h"
#include "platform/chart_qt/chart_legend.h"
#include "platform/chart_qt/data_labels.h"
#include "platform/chart_qt/deep_series.h"
#include "platform/chart_qt/flat_series.h"
#include "platform/chart_qt/painted_layer.h"
#include "platform/chart_qt/pie.h"

namespace tela {

namespace {

constexpr double kMargin = 12;         // pixels around all
constexpr double kLeastPlot = 40;      // the least side of a plot
constexpr double kPointRoom = 7;       // for a point at the edge of the plot
constexpr double kLegendShare = 0.36;  // the most of the width that the legend takes

QString mark_text(const ValueScale& scale, double mark) {
  const AmountUnit unit = amount_unit(std::max(std::abs(scale.low), std::abs(scale.high)));
  return QString::fromStdString(amount_in(unit, mark, scale.places(unit.size)));
}

double widest_mark(const ValueScale& scale, const QFont& font) {
  double widest = 0;
  for (const double mark : scale.marks())
    widest = std::max(widest, QFontMetricsF(font).horizontalAdvance(mark_text(scale, mark)));
  return widest;
}

std::vector<double> values_of(const std::vector<DrawnRow>& rows) {
  std::vector<double> values;
  values.reserve(rows.size());
  for (const DrawnRow& row : rows) values.push_back(row.value);
  return values;
}

// Whether a line leads from point to point, which a label must keep clear of.
bool joins_points(ChartType type) {
  switch (type) {
    case ChartType::bar_2d:
    case ChartType::bar_3d:
    case ChartType::step_2d:
    case ChartType::step_3d:
      return false;
    default:
      return true;
  }
}

// To the right and up, and never so far that it takes the plot's room.
QPointF depth_for(double pitch, const QRectF& room) {
  constexpr double kLeast = 12;
  const double most = std::min({32.0, room.width() / 12, room.height() / 8});
  const double side = std::max(std::min(pitch * 0.45, most), std::min(kLeast, most));
  return {side, -0.65 * side};
}

}  // namespace

DrawnChart::DrawnChart(const Chart& chart, QSize size, const QFont& font)
    : scene_(QRectF(QPointF(0, 0), QSizeF(size))),
      chart_(new QChart),
      fonts_(font),
      rows_(drawn_rows(chart)),
      tip_([](QPointF) { return QString(); }) {
  scene_.addItem(chart_);
  chart_->setGeometry(scene_.sceneRect());
  chart_->setBackgroundBrush(Qt::white);
  chart_->setBackgroundPen(Qt::NoPen);
  chart_->setBackgroundRoundness(0);
  chart_->setMargins(QMargins());
  chart_->legend()->hide();
  const QRectF room = draw_surroundings(chart);
  if (rows_.empty())
    draw_empty(room, chart.column.empty() ? "Nothing has been drawn yet: View draws the chart"
                                          : "Nothing was found to draw");
  else if (chart.type == ChartType::pie_2d)
    draw_pie(chart, room);
  else
    draw_plot(chart, room);
  chart_->layout()->activate();
}

QImage DrawnChart::image() {
  QImage picture(scene_.sceneRect().size().toSize(), QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  scene_.render(&painter);
  return picture;
}

QRectF DrawnChart::draw_surroundings(const Chart& chart) {
  QRectF room = scene_.sceneRect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const QString title = QString::fromStdString(chart.column);
  if (!title.isEmpty()) {
    const QRectF line(room.topLeft(), QSizeF(room.width(), QFontMetricsF(fonts_.title).height()));
    add_layer([title, line, font = fonts_.title](QPainter& painter) {
      painter.setFont(font);
      painter.setPen(kChartInk);
      painter.drawText(line, Qt::AlignCenter, title);
    });
    room.setTop(line.bottom() + kMargin);
  }
  if (chart.legend && !rows_.empty()) {
    const auto legend = std::make_shared<ChartLegend>(
        rows_, fonts_, QSizeF(room.width() * kLegendShare, room.height()));
    const QPointF corner(room.right() - legend->width(), room.top());
    add_layer([legend, corner](QPainter& painter) { legend->paint(painter, corner); });
    room.setRight(corner.x() - 2 * kMargin);
  }
  return room;
}

void DrawnChart::draw_empty(const QRectF& room, const QString& words) {
  add_layer([room](QPainter& painter) {
    painter.setPen(QPen(kChartGrid, 1));
    painter.setBrush(kChartWall);
    painter.drawRect(room);
  });
  draw_note(words, room);
}

void DrawnChart::draw_note(const QString& words, const QRectF& place) {
  add_layer([words, place, font = fonts_.text](QPainter& painter) {
    painter.setFont(font);
    painter.setPen(kChartFaintInk);
    painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, words);
  });
}

void DrawnChart::draw_pie(const Chart& chart, const QRectF& room) {
  QRectF area = room;
  const bool labelled = chart.label_location == kAbovePoint;
  auto pie = std::make_shared<Pie>(rows_, fonts_.text, area, labelled);
  if (pie->empty()) return draw_note("A pie shows values above zero, and there are none", room);
  if (pie->left_out() > 0) {
    const QRectF line(room.left(), room.bottom() - QFontMetricsF(fonts_.text).height(),
                      room.width(), QFontMetricsF(fonts_.text).height());
    draw_note(
        QString("Not in the pie: %1 of %2, zero or below").arg(pie->left_out()).arg(rows_.size()),
        line);
    area.setBottom(line.top() - kMargin);
    pie = std::make_shared<Pie>(rows_, fonts_.text, area, labelled);
  }
  pie->add_to(*chart_);
  add_layer([pie](QPainter& painter) { pie->paint_labels(painter); });
  tip_ = [this, pie](QPointF place) {
    const auto row = pie->row_at(place);
    return row ? tip_of(*row) : QString();
  };
}

void DrawnChart::draw_plot(const Chart& chart, const QRectF& room) {
  const std::vector<double> values = values_of(rows_);
  const QFontMetricsF metrics(fonts_.text);
  PlotFrame frame;
  frame.rows = static_cast<int>(rows_.size());
  frame.scale = value_scale(values, 6, 0);
  const double left = widest_mark(frame.scale, fonts_.text) + metrics.averageCharWidth() + kMargin;
  frame.front = room.adjusted(std::min(left, room.width() / 3), 0, 0, 0);
  if (is_deep(chart.type)) frame.depth = depth_for(frame.pitch(), frame.front);
  frame.front.adjust(0, -frame.depth.y(), -frame.depth.x(), 0);

  QStringList labels;
  for (const DrawnRow& row : rows_) labels << row.label;
  const AxisLabels below(labels, fonts_.text, frame.pitch(), room.height() * 0.3);
  frame.front.setBottom(std::max(frame.front.top() + kLeastPlot, room.bottom() - below.height()));

  const bool labelled = chart.label_location == kAbovePoint;
  const DataLabels figures(rows_, fonts_.text, frame.pitch(), joins_points(chart.type) ? 9 : 4,
                           chart.label_orientation == kTextUpwards);
  const double beyond = labelled ? figures.height() : kPointRoom;
  const int intervals = std::clamp(static_cast<int>(frame.front.height() / 50), 2, 8);
  frame.scale = value_scale(values, intervals, std::min(beyond / frame.front.height(), 0.4));

  chart_->setPlotArea(frame.front);
  add_axes(frame, chart.type);
  if (is_deep(chart.type))
    add_layer([type = chart.type, values, frame](QPainter& painter) {
      paint_deep(painter, type, values, frame);
    });
  else
    add_flat_series(*chart_, chart.type, values);
  if (frame.scale.low < 0 && !is_deep(chart.type)) {
    const QLineF zero(frame.front.left(), frame.y(0), frame.front.right(), frame.y(0));
    add_layer([zero](QPainter& painter) {
      painter.setPen(QPen(kChartFaintInk, 1));
      painter.drawLine(zero);
    });
  }
  add_layer([below, frame](QPainter& painter) {
    painter.setPen(kChartInk);
    below.paint(painter, frame);
  });
  if (labelled) {
    std::vector<QPointF> points;
    for (int row = 0; row < frame.rows; ++row) {
      const double value = values[static_cast<std::size_t>(row)];
      const QPointF top(frame.depth.x() / 2, value < 0 ? 0 : frame.depth.y());
      points.push_back(frame.at(row, value) + top);
    }
    add_layer([figures, points](QPainter& painter) { figures.paint(painter, points); });
  }
  tip_ = [this, frame](QPointF place) {
    if (!frame.front.contains(place)) return QString();
    const double row = (place.x() - frame.front.left()) / frame.pitch();
    return tip_of(std::min(static_cast<std::size_t>(row), rows_.size() - 1));
  };
}

void DrawnChart::add_axes(const PlotFrame& frame, ChartType type) {
  auto* across = new QValueAxis;
  across->setRange(-0.5, frame.rows - 0.5);
  across->setTickType(QValueAxis::TicksDynamic);
  across->setTickAnchor(0);
  across->setTickInterval(1);
  across->setLabelsVisible(false);
  across->setGridLineVisible(type == ChartType::xy_2d);
  auto* up = new QCategoryAxis;
  up->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  up->setStartValue(frame.scale.low);
  for (const double mark : frame.scale.marks()) up->append(mark_text(frame.scale, mark), mark);
  up->setRange(frame.scale.low, frame.scale.high);
  up->setGridLineVisible(!is_deep(type));
  chart_->addAxis(across, Qt::AlignBottom);
  chart_->addAxis(up, Qt::AlignLeft);
  for (QAbstractAxis* axis : chart_->axes()) {
    axis->setLabelsFont(fonts_.text);
    axis->setLabelsColor(kChartInk);
    axis->setLinePen(QPen(kChartFaintInk, 1));
    axis->setGridLinePen(QPen(kChartGrid, 1));
  }
}

void DrawnChart::add_layer(const std::function<void(QPainter&)>& paint) {
  scene_.addItem(new PaintedLayer(scene_.sceneRect(), paint));
}

QString DrawnChart::tip_of(std::size_t row) const {
  return rows_[row].label + "\n" + rows_[row].exact;
}

}  // namespace tela
