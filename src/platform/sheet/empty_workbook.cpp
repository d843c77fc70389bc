#include "platform/sheet/empty_workbook.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "platform/process/program_run.h"
#include "platform/sheet/office_sheets.h"
#include "platform/sheet/sheet_port.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

class PassingFolder {
 public:
  PassingFolder() {
    std::string name = (fs::temp_directory_path() / "tela-workbook-XXXXXX").string();
    if (!mkdtemp(name.data()))
      throw SheetError("No folder can be made in " + fs::temp_directory_path().string() + ".");
    path_ = name;
  }
  ~PassingFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  PassingFolder(const PassingFolder&) = delete;
  PassingFolder& operator=(const PassingFolder&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

}  // namespace

std::string empty_workbook(const std::string& office, std::chrono::seconds limit) {
  const fs::path program = office_folder(office) / "soffice";
  const PassingFolder folder;
  const fs::path rows = folder.path() / "Sheet1.csv";  // the sheet gets the file's name
  std::ofstream(rows).close();
  ProgramRun run({{program.string(), "--headless", "--norestore",
                   "-env:UserInstallation=file://" + (folder.path() / "settings").string(),
                   "--convert-to", "xls", "--outdir", folder.path().string(), rows.string()}});
  const auto code = run.wait(limit);
  std::ostringstream bytes;
  bytes << std::ifstream(folder.path() / "Sheet1.xls", std::ios::binary).rdbuf();
  if (code != 0 || bytes.str().empty())
    throw SheetError("LibreOffice made no workbook. " + run.words());
  return bytes.str();
}

}  // namespace tela
