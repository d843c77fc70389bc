// The pie: slices of Qt Charts, and labels around it that keep clear of each other.
#pragma once

#include <QChart>
#include <QFont>
#include <QPainter>
#include <optional>
#include <vector>

#include "platform/chart_qt/chart_rows.h"

namespace tela {

/// The heights nearest to `wanted` (rising) that lie at least `gap` apart between `low` and `high`,
/// which must have the room.
std::vector<double> spread(std::vector<double> wanted, double gap, double low, double high);

class Pie {
 public:
  /// Plans the pie in `area`. Rows above zero have slices; a pie cannot show the others.
  Pie(const std::vector<DrawnRow>& rows, const QFont& font, const QRectF& area, bool labelled);

  /// How many rows have no slice.
  int left_out() const;
  bool empty() const { return slices_.empty(); }

  void add_to(QChart& chart) const;
  void paint_labels(QPainter& painter) const;
  /// The row whose slice is at that place.
  std::optional<std::size_t> row_at(QPointF place) const;

 private:
  struct Slice {
    std::size_t row;
    double start;  ///< degrees, clockwise from the top
    double span;
    double middle() const { return start + span / 2; }
  };

  /// The row's label and share; a label that is too long for the room is cut short, the share
  /// never.
  QString label(const Slice& slice, double room) const;
  QPointF direction(const Slice& slice) const;
  void paint_side(QPainter& painter, bool right) const;

  std::vector<DrawnRow> rows_;
  QFont font_;
  QRectF area_;
  bool labelled_;
  double radius_ = 0;
  std::vector<Slice> slices_;
};

}  // namespace tela
