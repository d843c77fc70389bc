// The spreadsheet program's stand-in for scripts: each sheet becomes a CSV file.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/paths/paths.h"
#include "platform/sheet/sheet_port.h"

namespace tela {

/// Writes sheets to <folder>/<workbook>-<n>.csv, n being the first number from 1 on that is free,
/// so that no earlier sheet is lost. The folder is made when it is first needed; the workbook
/// itself must be there, and stays as it is.
std::unique_ptr<SheetPort> make_csv_sheets(const Paths& paths, const std::filesystem::path& folder);

}  // namespace tela
