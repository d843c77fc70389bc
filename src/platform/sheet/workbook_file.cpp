#include "platform/sheet/workbook_file.h"

#include <fstream>

#include "platform/sheet/sheet_port.h"

namespace tela {

std::filesystem::path require_workbook(const Paths& paths, const std::string& workbook) {
  auto file = paths.resolve(workbook);
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error))
    throw SheetError("There is no file " + file.string() + ".");
  if (!std::ifstream(file)) throw SheetError("The file " + file.string() + " cannot be read.");
  return file;
}

}  // namespace tela
