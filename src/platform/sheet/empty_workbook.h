// An empty workbook, made by LibreOffice.
#pragma once

#include <chrono>
#include <string>

namespace tela {

/// The bytes of an .xls file with one empty sheet. The office, a path or a name on the PATH, runs
/// unseen and with settings of its own, so that one that is open is not disturbed. Throws
/// SheetError.
std::string empty_workbook(const std::string& office,
                           std::chrono::seconds limit = std::chrono::seconds(60));

}  // namespace tela
