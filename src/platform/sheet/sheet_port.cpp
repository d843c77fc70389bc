#include "platform/sheet/sheet_port.h"

#include <algorithm>

namespace tela {

std::string_view workbook_name(std::string_view workbook) {
  const auto file = workbook.substr(workbook.find_last_of("\\/") + 1);
  return file.substr(0, file.find_last_of('.'));
}

UsedArea used_area(const SheetBlock& block) {
  UsedArea area;
  for (std::size_t row = 0; row < block.size(); ++row) {
    const auto last = std::find_if(block[row].rbegin(), block[row].rend(),
                                   [](const std::string& text) { return !text.empty(); });
    if (last == block[row].rend()) continue;
    area.rows = row + 1;
    area.cols = std::max(area.cols, static_cast<std::size_t>(block[row].rend() - last));
  }
  return area;
}

}  // namespace tela
