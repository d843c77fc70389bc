// Boxes that show the fields of one row: the header of a bill or of a purchase.
#pragma once

#include <string>
#include <vector>

#include "report_framework/grid_columns.h"

namespace tela {

/// A box, the label beside it, and the field that it shows.
struct RowBox {
  std::string name;
  std::string label;
  CellSource source = {};
};

/// Writes the fields of the current row into their boxes.
void fill_boxes(Form& form, const std::vector<RowBox>& boxes, const Recordset& rs);

}  // namespace tela
