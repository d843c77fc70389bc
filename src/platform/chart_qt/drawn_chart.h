// A chart drawn in a size: by Qt Charts, with what it lacks painted over it (depth, labels that
// keep clear of each other, a legend with figures).
#pragma once

#include <QChart>
#include <QFont>
#include <QGraphicsScene>
#include <QImage>
#include <functional>
#include <vector>

#include "platform/chart/chart.h"
#include "platform/chart_qt/chart_look.h"
#include "platform/chart_qt/chart_rows.h"
#include "platform/chart_qt/plot_frame.h"

namespace tela {

class DrawnChart {
 public:
  /// `size` in pixels. The texts are in sizes that follow from that of `font`.
  DrawnChart(const Chart& chart, QSize size, const QFont& font);
  DrawnChart(const DrawnChart&) = delete;
  DrawnChart& operator=(const DrawnChart&) = delete;

  QGraphicsScene& scene() { return scene_; }
  QImage image();

  /// The label and the exact figure of the row that is drawn at that place; empty where none is.
  QString tip_at(QPointF place) const { return tip_(place); }

 private:
  /// Draws the title and the legend, and returns the room that they leave.
  QRectF draw_surroundings(const Chart& chart);
  void draw_empty(const QRectF& room, const QString& words);
  void draw_note(const QString& words, const QRectF& place);
  void draw_pie(const Chart& chart, const QRectF& room);
  void draw_plot(const Chart& chart, const QRectF& room);
  void add_axes(const PlotFrame& frame, ChartType type);
  void add_layer(const std::function<void(QPainter&)>& paint);
  QString tip_of(std::size_t row) const;

  QGraphicsScene scene_;
  QChart* chart_;  // the scene's
  ChartFonts fonts_;
  std::vector<DrawnRow> rows_;
  std::function<QString(QPointF)> tip_;
};

}  // namespace tela
