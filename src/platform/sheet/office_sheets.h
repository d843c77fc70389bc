// The spreadsheet program itself: LibreOffice, the one that runs or else one that is started.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/paths/paths.h"
#include "platform/sheet/sheet_port.h"

namespace tela {

struct OfficeSettings {
  /// The program that speaks to the office (apps/tela_office); empty where there is none.
  std::filesystem::path link;
  /// The office, a path or a name on the PATH.
  std::string office = "soffice";
  /// More arguments for an office that is started.
  std::vector<std::string> options = {};
  /// The name of the pipe on which the office listens to us.
  std::string pipe = "tela-reports";
  /// The longest that a step may take, the start of the office included.
  std::chrono::seconds limit{60};
};

/// Adds sheets to workbooks that are open in LibreOffice, and opens those that are not, unseen. An
/// office that was started runs on, with the sheets that nobody has saved yet; one that was started
/// for a sheet that then failed is ended. Without a desktop the office is started unseen.
std::unique_ptr<SheetPort> make_office_sheets(const Paths& paths, OfficeSettings settings);

/// The folder of the office's own programs and libraries. Throws SheetError if there is no office.
std::filesystem::path office_folder(const std::string& office);

}  // namespace tela
