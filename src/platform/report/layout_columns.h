// A table's columns in a layout: each is declared once, and its heading, its figure in the detail
// row and its place in the totals follow from that.
#pragma once

#include <string>
#include <vector>

#include "platform/report/layout.h"

namespace tela {

struct LayoutColumn {
  std::string field;
  double width = 0;
  bool takes_rest = false;  ///< shares what the other columns leave of the line
  TextAlign align = TextAlign::left;
  std::string heading;
  std::string mask;
  bool summed = false;
  double x = 0;
  SourceLine source;
};

/// Gives every column its place, from the left. Throws std::invalid_argument if they need more than
/// `available` millimetres.
void place_columns(std::vector<LayoutColumn>& columns, double available);

/// The row of headings, between two rules.
Row heading_row(const std::vector<LayoutColumn>& columns, double height, TextStyle style);

/// The row of one record.
Row record_row(const std::vector<LayoutColumn>& columns, double height, TextStyle style);

/// The row of the sums, with a label ahead of the first one. Throws std::invalid_argument if no
/// column is summed or the first one is, so that the label has no place.
Row totals_row(const std::vector<LayoutColumn>& columns, double height, TextStyle style,
               TextTemplate label, const SourceLine& source);

}  // namespace tela
