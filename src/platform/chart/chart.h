// The chart of a screen: first of all a table of rows, each a label and a value, both texts. A
// window draws it; nothing is read back from the drawing.
#pragma once

#include <string>
#include <vector>

namespace tela {

/// The kinds of chart, by the numbers that the chart's type has.
enum class ChartType {
  bar_3d = 0,
  bar_2d = 1,
  line_3d = 2,
  line_2d = 3,
  area_3d = 4,
  area_2d = 5,
  step_3d = 6,
  step_2d = 7,
  combination_3d = 8,
  combination_2d = 9,
  pie_2d = 14,
  xy_2d = 16,
};

/// The places of a data label, of which one is used.
inline constexpr int kAbovePoint = 1;
/// The orientations of a data label's text, of which one is used: it reads upwards.
inline constexpr int kTextUpwards = 2;

/// One row, which is one point and one entry of the legend.
struct ChartRow {
  std::string label;
  std::string value;  ///< a number as text, by the rule of Val
  bool operator==(const ChartRow&) const = default;
};

struct Chart {
  ChartType type = ChartType::bar_2d;
  bool legend = false;
  std::string column;  ///< the label of the one column: what the values are; empty before any rows
  std::vector<ChartRow> rows;
  int label_location = 0;     ///< of the data labels; 0 before any
  int label_orientation = 0;  ///< of the data labels' text; 0 where none is set
  bool operator==(const Chart&) const = default;
};

}  // namespace tela
