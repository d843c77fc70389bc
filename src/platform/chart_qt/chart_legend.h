// The legend: each row's colour, label and figure, in a column at the right.
#pragma once

#include <QFont>
#include <QPainter>
#include <QString>
#include <vector>

#include "platform/chart_qt/chart_look.h"
#include "platform/chart_qt/chart_rows.h"

namespace tela {

class ChartLegend {
 public:
  /// Plans a legend in `room`: in the small font where the rows are many, then in two columns, and
  /// where even these are full, the last entry says how many more there are. In a narrow room the
  /// figures give way to the labels.
  ChartLegend(const std::vector<DrawnRow>& rows, const ChartFonts& fonts, QSizeF room);

  double width() const { return columns_ * column_width_; }
  void paint(QPainter& painter, QPointF corner) const;

 private:
  void paint_entry(QPainter& painter, int entry, const QRectF& place) const;

  QString figure(const DrawnRow& row) const;

  std::vector<DrawnRow> rows_;
  QFont font_;
  int places_ = 0;  // decimals, the same in all figures
  int entries_in_column_ = 1;
  int columns_ = 1;
  double column_width_ = 0;
};

}  // namespace tela
