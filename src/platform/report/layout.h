// A report layout as plain data: the paper and the bands, each a stack of rows of text cells. The
// reader makes it from a layout file; binding it to a query's result fills in the column numbers.
// All measures are millimetres from the left margin or the top of the row.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/report/report_page.h"

namespace tela {

/// A part of a cell's text.
struct TextPiece {
  enum class Kind {
    literal,
    column,   ///< the value of `name` in the row at hand
    formula,  ///< the heading value that the program gives under `name`
    page,     ///< the number of this page
    pages,    ///< how many pages there are
    records,  ///< how many rows the band speaks of: its group's, else all
    first,    ///< the value of column `name` in the first of those rows
    last,     ///< and in the last
    sum,      ///< the sum of column `name` over those rows
    percent   ///< that sum as a percentage of the sum of column `of`
  };
  Kind kind = Kind::literal;
  std::string name;  ///< column or formula; the text itself of a literal
  std::string of;
  std::string mask;  ///< number, date or time mask; empty: the plain value
  std::size_t column = 0;
  std::size_t of_column = 0;
};

using TextTemplate = std::vector<TextPiece>;

/// Where something stands in a layout file, for messages.
struct SourceLine {
  std::string file;
  int line = 0;
};

/// A text in its place within a row.
struct Cell {
  double x = 0;
  double width = 0;
  TextAlign align = TextAlign::left;
  TextStyle style;
  TextTemplate text;
  SourceLine source;
};

struct Row {
  double height = 0;
  bool shaded = false;
  bool rule_above = false;
  bool rule_below = false;
  std::vector<Cell> cells;
};

struct Band {
  std::vector<Row> rows;
  double height() const;
};

/// Rows that follow each other with the same value of a column.
struct Group {
  TextPiece key;
  bool only_if_many = false;  ///< no header and no footer where all rows are one group
  Band header;
  Band footer;
  SourceLine source;
};

struct Margins {
  double left = 12;
  double top = 10;
  double right = 12;
  double bottom = 10;
};

struct Layout {
  std::string file;
  PaperSize paper;
  Margins margins;
  std::string font_family = "Liberation Sans";
  TextStyle style;
  std::vector<std::string> tables;
  std::vector<std::string> formulas;

  Band page_header;
  Band column_header;
  Band detail;
  Band report_footer;
  Band page_footer;
  std::vector<Group> groups;  ///< the outermost first
  bool striped = false;       ///< every second detail row is shaded

  /// The width between the margins.
  double body_width() const;
  /// What a page has left for groups, details and the report footer.
  double body_height() const;
};

}  // namespace tela
