// The file of a workbook on this machine.
#pragma once

#include <filesystem>
#include <string>

#include "platform/paths/paths.h"

namespace tela {

/// Where the workbook of the shop's machine lies. Throws SheetError if there is no such file or it
/// cannot be read.
std::filesystem::path require_workbook(const Paths& paths, const std::string& workbook);

}  // namespace tela
