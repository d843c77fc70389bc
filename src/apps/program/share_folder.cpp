#include "apps/program/share_folder.h"

#include <functional>

namespace tela {

namespace fs = std::filesystem;

namespace {

// The first that `find` gives for the running program's folder and those above it.
fs::path upwards(const std::function<fs::path(const fs::path& folder)>& find) {
  std::error_code failure;
  const auto program = fs::read_symlink("/proc/self/exe", failure);
  for (auto folder = program.parent_path(); folder.has_relative_path();
       folder = folder.parent_path()) {
    if (fs::path found = find(folder); !found.empty()) return found;
  }
  return {};
}

}  // namespace

fs::path share_folder(std::string_view name) {
  return upwards([&](const fs::path& folder) -> fs::path {
    std::error_code failure;
    for (const auto& candidate : {folder / "share" / "tela" / name, folder / name})
      if (fs::is_directory(candidate, failure)) return candidate;
    return {};
  });
}

fs::path inner_program(std::string_view name) {
  return upwards([&](const fs::path& folder) -> fs::path {
    std::error_code failure;
    for (const auto& candidate : {folder / "libexec" / "tela" / name, folder / name / name})
      if (fs::is_regular_file(candidate, failure)) return candidate;
    return {};
  });
}

}  // namespace tela
