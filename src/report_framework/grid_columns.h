// The columns of a report grid, as data: header, width, where a cell's text comes from and how it
// is written, and the box that totals it. All that is known of a column stands in its one value.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/database/database_client.h"
#include "shell/form.h"

namespace tela {

/// How a field's value is written into a cell.
enum class CellForm {
  as_it_comes,  ///< the field's text, unchanged
  trimmed,      ///< its text without blanks at both ends
  number,       ///< under a number mask; a text that is no number stays as it is
  val,          ///< Val first, then under a number mask; never anything but a number
  date,         ///< under a date mask
  time,         ///< under a time mask
};

/// The source of a column's cells: a field of the query by its position, the row number, or what is
/// worked out of the row's fields.
struct CellSource {
  int field = kRowNumber;
  CellForm form = CellForm::as_it_comes;
  std::string mask = {};
  std::function<std::string(const Recordset&)> worked_out = {};  ///< goes ahead of the others

  static constexpr int kRowNumber = -1;
};

CellSource row_number();
CellSource field(int position);
CellSource trimmed_field(int position);
CellSource number_field(int position, std::string mask);
CellSource val_field(int position, std::string mask);
CellSource date_field(int position, std::string mask);
CellSource time_field(int position, std::string mask);
/// The function gets the recordset on the row.
CellSource worked_out(std::function<std::string(const Recordset&)> text);

/// The box that sums a column, under the mask that each step of the sum is written with.
struct ColumnTotal {
  std::string box = {};
  std::string mask = {};
};

struct GridColumn {
  std::string header;
  int width = 0;  ///< in twips
  CellSource source = {};
  ColumnTotal total = {};
};

using GridColumns = std::vector<GridColumn>;

/// A field's value as a cell shows it. Null gives an empty cell, but under `val`, where it counts
/// as 0.
std::string cell_text(const Value& value, const CellSource& source);

}  // namespace tela
