// Where the files that come with the program lie.
#pragma once

#include <filesystem>
#include <string_view>

namespace tela {

/// The folder `name` of the program's own files: share/tela/NAME beside the installed program's bin
/// folder, or NAME in the source tree that the running program was built in. An empty path if
/// neither is there.
std::filesystem::path share_folder(std::string_view name);

/// A program of the program's own, which the user does not start: libexec/tela/NAME beside the
/// installed program's bin folder, or as it was built. An empty path if it is not there.
std::filesystem::path inner_program(std::string_view name);

}  // namespace tela
