#include "platform/sheet/csv_sheets.h"

#include <string>
#include <system_error>
#include <utility>

#include "platform/sheet/new_file.h"
#include "platform/sheet/sheet_csv.h"
#include "platform/sheet/workbook_file.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

class CsvSheets : public SheetPort {
 public:
  CsvSheets(const Paths& paths, fs::path folder) : paths_(paths), folder_(std::move(folder)) {}

  void add_sheet(const std::string& workbook, const SheetBlock& block) override {
    require_workbook(paths_, workbook);
    std::error_code error;
    fs::create_directories(folder_, error);
    const std::string name = (folder_ / workbook_name(workbook)).string();
    const std::string csv = sheet_csv(block);
    int n = 1;
    while (!write_new_file(name + "-" + std::to_string(n) + ".csv", csv)) ++n;
  }

  // The files show themselves.
  void show(const std::string&) override {}

 private:
  Paths paths_;
  fs::path folder_;
};

}  // namespace

std::unique_ptr<SheetPort> make_csv_sheets(const Paths& paths, const fs::path& folder) {
  return std::make_unique<CsvSheets>(paths, folder);
}

}  // namespace tela
