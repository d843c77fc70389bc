// From a table's columns to the rows that show them.
#include "platform/report/layout_columns.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tela {
namespace {

/// Kept free at both sides of a column, so that neighbours never touch.
constexpr double padding = 1.1;

Cell column_cell(const LayoutColumn& column, TextStyle style) {
  Cell cell;
  cell.x = column.x + padding;
  cell.width = std::max(column.width - 2 * padding, 0.0);
  cell.align = column.align;
  cell.style = style;
  cell.source = column.source;
  return cell;
}

TextPiece column_piece(const LayoutColumn& column, TextPiece::Kind kind) {
  TextPiece piece;
  piece.kind = kind;
  piece.name = column.field;
  piece.mask = column.mask;
  return piece;
}

}  // namespace

void place_columns(std::vector<LayoutColumn>& columns, double available) {
  double fixed = 0;
  int sharing = 0;
  for (const LayoutColumn& column : columns) {
    fixed += column.width;
    sharing += column.takes_rest ? 1 : 0;
  }
  constexpr double narrowest = 10;
  if (fixed + sharing * narrowest > available) {
    throw std::invalid_argument("the columns are wider than the paper between its margins");
  }
  double x = 0;
  for (LayoutColumn& column : columns) {
    if (column.takes_rest) column.width = (available - fixed) / sharing;
    column.x = x;
    x += column.width;
  }
}

Row heading_row(const std::vector<LayoutColumn>& columns, double height, TextStyle style) {
  Row row;
  row.height = height;
  row.shaded = row.rule_above = row.rule_below = true;
  style.bold = true;
  for (const LayoutColumn& column : columns) {
    Cell cell = column_cell(column, style);
    TextPiece heading;
    heading.name = column.heading;
    cell.text.push_back(std::move(heading));
    row.cells.push_back(std::move(cell));
  }
  return row;
}

Row record_row(const std::vector<LayoutColumn>& columns, double height, TextStyle style) {
  Row row;
  row.height = height;
  for (const LayoutColumn& column : columns) {
    Cell cell = column_cell(column, style);
    cell.text.push_back(column_piece(column, TextPiece::Kind::column));
    row.cells.push_back(std::move(cell));
  }
  return row;
}

Row totals_row(const std::vector<LayoutColumn>& columns, double height, TextStyle style,
               TextTemplate label, const SourceLine& source) {
  const auto first = std::find_if(columns.begin(), columns.end(),
                                  [](const LayoutColumn& column) { return column.summed; });
  if (first == columns.end()) throw std::invalid_argument("no column is summed");
  if (first == columns.begin()) throw std::invalid_argument("the totals' label has no column");
  Row row;
  row.height = height;
  row.rule_above = true;
  style.bold = true;
  Cell label_cell;
  label_cell.x = padding;
  label_cell.width = first->x - 2 * padding;
  label_cell.style = style;
  label_cell.text = std::move(label);
  label_cell.source = source;
  row.cells.push_back(std::move(label_cell));
  for (const LayoutColumn& column : columns) {
    if (!column.summed) continue;
    Cell cell = column_cell(column, style);
    cell.text.push_back(column_piece(column, TextPiece::Kind::sum));
    row.cells.push_back(std::move(cell));
  }
  return row;
}

}  // namespace tela
