// Kept rows as a folder of files.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/way_back/kept_rows.h"

namespace tela {

/// Keeps the parts of an action in <folder>/<moment>_<screen>/<part>, such as
/// 2024-01-05_14-30-12_frmStockAdjustReport/1, with the moment of the first part by the machine's
/// clock. Parts count from 1. A second action of the same moment and screen gets "_2" behind its
/// name. A folder appears under its name with its first part in it, whole and on the disk; what a
/// killed program left unfinished is removed by the next one.
std::unique_ptr<KeptRows> keep_in_folder(const std::filesystem::path& folder,
                                         std::string_view screen);

}  // namespace tela
