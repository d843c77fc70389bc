// A chart in a window: drawn to fill it, with each row's exact figure under the pointer.
#pragma once

#include <QGraphicsView>
#include <memory>

#include "platform/chart_qt/drawn_chart.h"

namespace tela {

class ChartView : public QGraphicsView {
  Q_OBJECT

 public:
  explicit ChartView(QWidget* parent = nullptr);

  /// Shows `chart`; null shows nothing, ahead of the chart's end.
  void set_chart(const Chart* chart);
  /// Shows what has changed in the chart.
  void refresh();

  /// Whether it is this chart that the view shows.
  bool shows(const Chart& chart) const { return chart_ == &chart; }

  QSize sizeHint() const override { return {960, 560}; }
  QSize minimumSizeHint() const override { return {420, 260}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void draw();

  const Chart* chart_ = nullptr;
  Chart shown_;
  std::unique_ptr<DrawnChart> drawn_;
};

}  // namespace tela
