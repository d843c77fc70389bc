#include "platform/sheet/sheet_csv.h"

#include "platform/csv/csv_record.h"

namespace tela {

std::string sheet_csv(const SheetBlock& block) {
  const UsedArea area = used_area(block);
  // An empty line would be no record.
  const std::string_view empty_cell = area.cols == 1 ? "\"\"" : "";
  std::string csv;
  for (std::size_t row = 0; row < area.rows; ++row) {
    for (std::size_t col = 0; col < area.cols; ++col) {
      if (col > 0) csv += ',';
      if (col < block[row].size() && !block[row][col].empty())
        append_csv_text(csv, block[row][col]);
      else
        csv += empty_cell;
    }
    csv += "\r\n";
  }
  return csv;
}

}  // namespace tela
