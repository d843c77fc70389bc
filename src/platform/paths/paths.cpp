#include "platform/paths/paths.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/text/ascii.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// The names of a machine path from the drive down, ".." resolved.
std::vector<std::string> names_of(std::string_view machine_path) {
  std::vector<std::string> names;
  std::string name;
  const auto end_name = [&] {
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
    name.clear();
  };
  for (const char c : machine_path) {
    if (c == '\\' || c == '/' || (c == ':' && names.empty())) {
      end_name();
    } else {
      name += c;
    }
  }
  end_name();
  return names;
}

/// The entry of `folder` that is called `name` but for case; the exact spelling comes first, then
/// the first in byte order, so that the choice does not follow the folder's order on the disk.
fs::path entry_of(const fs::path& folder, const std::string& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  std::vector<std::string> matches;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::string entry = it->path().filename().string();
    if (equal_ignoring_case(entry, name)) matches.push_back(std::move(entry));
  }
  if (matches.empty()) return folder / name;
  return folder / *std::min_element(matches.begin(), matches.end());
}

}  // namespace

Paths::Paths(fs::path root) : root_(std::move(root)) {}

Paths Paths::from_environment() {
  if (const std::string root = environment("TELA_ROOT"); !root.empty()) return Paths(root);
  if (const std::string data = environment("XDG_DATA_HOME"); !data.empty())
    return Paths(fs::path(data) / "tela");
  if (const std::string home = environment("HOME"); !home.empty())
    return Paths(fs::path(home) / ".local" / "share" / "tela");
  throw std::runtime_error(
      "No platform root: set TELA_ROOT to the folder that holds the catalogue.");
}

fs::path Paths::resolve(std::string_view machine_path) const {
  fs::path path = root_;
  for (const std::string& name : names_of(machine_path)) path = entry_of(path, name);
  return path;
}

fs::path Paths::embedded_catalogue(std::string_view catalogue) const {
  return entry_of(root_, std::string(catalogue) + ".db");
}

fs::path Paths::server_catalogue(std::string_view catalogue) const {
  return entry_of(root_, std::string(catalogue) + ".odbc");
}

}  // namespace tela
