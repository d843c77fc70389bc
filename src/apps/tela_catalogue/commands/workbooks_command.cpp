#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/commands.h"
#include "platform/sheet/empty_workbook.h"
#include "platform/sheet/new_file.h"
#include "report_framework/sheet_layouts.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

// Whatever has the name counts, a link to a drive that is not there too.
bool is_there(const fs::path& file) {
  std::error_code error;
  return fs::exists(fs::symlink_status(file, error));
}

}  // namespace

void make_workbooks(const Paths& paths, const std::string& office, Messages& messages) {
  std::vector<std::string_view> missing;
  for (const std::string_view name : kWorkbooks)
    if (!is_there(paths.resolve(workbook_path(name)))) missing.push_back(name);
  if (missing.empty()) return messages.say("all workbooks are there already");
  const std::string bytes = empty_workbook(office);
  const fs::path folder = paths.resolve(workbook_path(missing.front())).parent_path();
  fs::create_directories(folder);
  std::string created;
  for (const std::string_view name : missing)
    if (write_new_file(paths.resolve(workbook_path(name)), bytes))
      created += ' ' + std::string(name);
  messages.say("created in " + folder.string() + ":" + created);
}

}  // namespace tela
