// A file that takes no other one's place.
#pragma once

#include <filesystem>
#include <string_view>

namespace tela {

/// Writes `text` to a file that is not there yet. False, and nothing done, if it is there. Throws
/// SheetError if it cannot be written; then there is no file.
bool write_new_file(const std::filesystem::path& file, std::string_view text);

}  // namespace tela
