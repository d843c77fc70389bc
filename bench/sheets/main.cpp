// How long a large grid takes into a workbook that LibreOffice has open, beside the time that the
// same LibreOffice takes to open the same rows from a CSV file.
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "platform/process/program_run.h"
#include "platform/sheet/empty_workbook.h"
#include "platform/sheet/office_sheets.h"
#include "platform/sheet/sheet_csv.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kRows = 30'000;
constexpr int kCols = 13;
constexpr int kRuns = 7;
const std::string kAsItComes = "44,34,76,1";  // commas, quotes, UTF-8, from the first line on

// Rows of the sheet of sales by day and rate: 13 columns.
SheetBlock sales_by_day() {
  SheetBlock block;
  for (int row = 1; row <= kRows; ++row) {
    const std::string number = std::to_string(row);
    block.push_back({number, std::to_string(100 * row), std::to_string(100 * row + 99),
                     std::to_string(row % 28 + 1) + "/Jan/2024"});
    while (block.back().size() < kCols)
      block.back().push_back(std::to_string(row * 7 % 90'000) + "." +
                             std::to_string(10 + row % 90));
  }
  return block;
}

class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "tela-sheets-XXXXXX").string();
    path = mkdtemp(name.data());
  }
  ~Folder() { fs::remove_all(path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  fs::path path;
};

// A LibreOffice of the bench's own, unseen.
ProgramRun start_office(const fs::path& folder, const std::string& pipe) {
  return ProgramRun({{"soffice", "--headless", "--norestore", "--nodefault",
                      "-env:UserInstallation=file://" + (folder / "profile").string(),
                      "--accept=pipe,name=" + pipe + ";urp"}});
}

// Each column with the number of its kind, 2 being text.
std::string all_as_text() {
  std::string options = kAsItComes + ",1/2";
  for (int col = 2; col <= kCols; ++col) options += "/" + std::to_string(col) + "/2";
  return options;
}

// The office's own time to open a file; it measures itself.
double open_csv(const std::string& pipe, const fs::path& csv, const std::string& options) {
  const fs::path office = office_folder("soffice");
  const std::string command = "LD_LIBRARY_PATH=" + office.string() + " URE_MORE_TYPES=file://" +
                              (office / "types/offapi.rdb").string() + " " TELA_CSV_OPENER " " +
                              pipe + " " + csv.string() + " " + options;
  std::FILE* const opener = popen(command.c_str(), "r");
  double milliseconds = 0;
  const int read = std::fscanf(opener, "%lf", &milliseconds);
  if (pclose(opener) != 0 || read != 1) throw std::runtime_error("the CSV file was not opened");
  return milliseconds;
}

double export_sheet(SheetPort& sheets, const std::string& workbook, const SheetBlock& block) {
  const auto begin = Clock::now();
  sheets.add_sheet(workbook, block);
  return Milliseconds(Clock::now() - begin).count();
}

void run() {
  const Folder folder;
  const std::string pipe = folder.path.filename().string();
  const std::string workbook = "D:\\GST_TAX.xls";
  const Paths paths(folder.path);
  fs::create_directories(paths.resolve(workbook).parent_path());
  std::ofstream(paths.resolve(workbook), std::ios::binary) << empty_workbook("soffice");
  const SheetBlock block = sales_by_day();
  const fs::path csv = folder.path / "rows.csv";
  std::ofstream(csv, std::ios::binary) << sheet_csv(block);

  const ProgramRun office = start_office(folder.path, pipe);
  const auto sheets = make_office_sheets(
      paths, {.link = TELA_OFFICE_PROGRAM,
              .options = {"-env:UserInstallation=file://" + (folder.path / "profile").string()},
              .pipe = pipe});
  sheets->add_sheet(workbook, {{"the office is up, the workbook open"}});
  open_csv(pipe, csv, kAsItComes);
  double here = 1e9;
  double texts = 1e9;
  double numbers = 1e9;
  for (int i = 0; i < kRuns; ++i) {
    here = std::min(here, export_sheet(*sheets, workbook, block));
    texts = std::min(texts, open_csv(pipe, csv, all_as_text()));
    numbers = std::min(numbers, open_csv(pipe, csv, kAsItComes));
  }
  std::printf("%d rows of %d columns: export %.0f ms\n", kRows, kCols, here);
  std::printf("opened from CSV as texts   %.0f ms, ratio %.2f\n", texts, here / texts);
  std::printf("opened from CSV as numbers %.0f ms, ratio %.2f\n", numbers, here / numbers);
}

}  // namespace
}  // namespace tela

int main() {
  try {
    tela::run();
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "sheets_bench: " << failure.what() << '\n';
    return 1;
  }
}
