#include "apps/program/share_folder.h"

namespace tela {

std::filesystem::path share_folder(std::string_view name) {
  std::error_code failure;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
  for (auto folder = program.parent_path(); folder.has_relative_path();
       folder = folder.parent_path()) {
    for (const auto& candidate : {folder / "share" / "tela" / name, folder / name})
      if (std::filesystem::is_directory(candidate, failure)) return candidate;
  }
  return {};
}

}  // namespace tela
