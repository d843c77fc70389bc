// The lines through the values of a chart, in rows (from 0) and values: what flat and deep charts
// of one kind have in common.
#pragma once

#include <QPolygonF>
#include <vector>

namespace tela {

/// The line from value to value. A single value makes a short level line, which can be seen.
inline QPolygonF joined(const std::vector<double>& values) {
  constexpr double kHalfOfSingle = 0.3;
  QPolygonF line;
  if (values.size() == 1) {
    line << QPointF(-kHalfOfSingle, values[0]) << QPointF(kHalfOfSingle, values[0]);
    return line;
  }
  for (std::size_t row = 0; row < values.size(); ++row)
    line.append({static_cast<double>(row), values[row]});
  return line;
}

/// The line that runs level over the whole width of each row and steps at its edges.
inline QPolygonF stepped(const std::vector<double>& values) {
  QPolygonF line;
  for (std::size_t row = 0; row < values.size(); ++row) {
    line.append({static_cast<double>(row) - 0.5, values[row]});
    line.append({static_cast<double>(row) + 0.5, values[row]});
  }
  return line;
}

/// The share of a row's width that its bar has, where rows are `pitch` pixels apart: few bars are
/// not as wide as walls.
inline double bar_width(double pitch) {
  constexpr double kShare = 0.7;
  constexpr double kMost = 110;  // pixels
  return pitch * kShare > kMost ? kMost / pitch : kShare;
}

/// The line cut where it crosses zero: each part lies on one side of it.
inline std::vector<QPolygonF> cut_at_zero(const QPolygonF& line) {
  std::vector<QPolygonF> parts(1);
  for (int i = 0; i < line.size(); ++i) {
    parts.back().append(line[i]);
    if (i + 1 == line.size() || line[i].y() * line[i + 1].y() >= 0) continue;
    const double share = line[i].y() / (line[i].y() - line[i + 1].y());
    const QPointF crossing(line[i].x() + share * (line[i + 1].x() - line[i].x()), 0);
    parts.back().append(crossing);
    parts.emplace_back() << crossing;
  }
  return parts;
}

}  // namespace tela
