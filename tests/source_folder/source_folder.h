// Where the project's own files lie while its tests and benches run.
#pragma once

#include <filesystem>

namespace tela {

/// The folder of the project's sources, absolute.
std::filesystem::path source_folder();

}  // namespace tela
