#include "platform/printer/open_port.h"

#include <filesystem>
#include <string>

#include "platform/printer/file_port.h"
#include "platform/printer/queue_port.h"
#include "platform/text/ascii.h"
#include "platform/text/strings.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

bool is_drive_path(std::string_view name) {
  return name.size() > 2 && is_letter(name[0]) && name[1] == ':' &&
         (name[2] == '\\' || name[2] == '/');
}

// A link counts as there when its target is not, as with a printer that is unplugged: the name is
// the port's then, and not a queue's.
bool is_there(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

// A path of the user's may be made; a device that is missing must not become a plain file.
IfMissing for_path(std::string_view path) {
  return path.starts_with("/dev/") ? IfMissing::fail : IfMissing::create;
}

}  // namespace

std::unique_ptr<PrinterPort> open_port(std::string_view name, const Paths& paths) {
  name = trimmed(name);
  if (name.empty()) throw PrinterError(PrinterError::Kind::cannot_open, "No printer port is set.");
  if (is_drive_path(name)) return open_file_port(paths.resolve(name), IfMissing::create);
  if (name.starts_with('/')) return open_file_port(name, for_path(name));

  if (name.ends_with(':')) name.remove_suffix(1);
  if (name.find_first_of("/\\") == std::string_view::npos) {
    const fs::path port = paths.resolve("ports\\" + std::string(name));
    if (is_there(port)) return open_file_port(port, IfMissing::fail);
    if (is_queue_name(name)) return open_queue_port(name);
  }
  throw PrinterError(PrinterError::Kind::cannot_open,
                     "\"" + std::string(name) + "\" is not the name of a printer port.");
}

}  // namespace tela
