#include "platform/sheet/csv_sheets.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "platform/sheet/sheet_csv.h"
#include "platform/sheet/workbook_file.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(const fs::path& file, int error) {
  throw SheetError(file.string() + " cannot be written (" + std::generic_category().message(error) +
                   ").");
}

class CsvSheets : public SheetPort {
 public:
  CsvSheets(const Paths& paths, fs::path folder) : paths_(paths), folder_(std::move(folder)) {}

  void add_sheet(const std::string& workbook, const SheetBlock& block) override {
    require_workbook(paths_, workbook);
    std::error_code error;
    fs::create_directories(folder_, error);
    write_new(folder_ / workbook_name(workbook), sheet_csv(block));
  }

  // The files show themselves.
  void show(const std::string&) override {}

 private:
  static void write_new(const fs::path& name, const std::string& text) {
    std::FILE* out = nullptr;
    fs::path file;
    for (int n = 1; !out; ++n) {
      file = name.string() + "-" + std::to_string(n) + ".csv";
      out = std::fopen(file.c_str(), "wxb");  // x: another program may be writing sheets too
      if (!out && errno != EEXIST) refuse(file, errno);
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
    if (std::fclose(out) == 0 && written) return;
    const int error = errno;
    std::error_code ignored;
    fs::remove(file, ignored);
    refuse(file, error);
  }

  Paths paths_;
  fs::path folder_;
};

}  // namespace

std::unique_ptr<SheetPort> make_csv_sheets(const Paths& paths, const fs::path& folder) {
  return std::make_unique<CsvSheets>(paths, folder);
}

}  // namespace tela
