// The shop's machine as one folder, the platform root. The only place that knows where the drives,
// ports and catalogues of the machine lie.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tela {

class Paths {
 public:
  /// The platform root is `root`, which need not exist.
  explicit Paths(std::filesystem::path root);

  /// The root that the environment names: $TELA_ROOT, else $XDG_DATA_HOME/tela, else
  /// ~/.local/share/tela. Throws std::runtime_error where none of the three is set.
  static Paths from_environment();

  const std::filesystem::path& root() const { return root_; }

  /// Where a path of the shop's machine lies: "D:\Tela_Supermarket\SGST.xls" is
  /// <root>/D/Tela_Supermarket/SGST.xls. Names match what exists without regard to case, at every
  /// level; what does not exist keeps its spelling. A path without a drive lies below the root, and
  /// ".." does not lead out of it.
  std::filesystem::path resolve(std::string_view machine_path) const;

  /// The folder that holds the printer ports by name.
  std::filesystem::path ports() const { return root_ / "ports"; }

  /// The folder that holds the rows kept by actions that removed or rewrote them.
  std::filesystem::path way_back() const { return root_ / "way_back"; }

  /// The embedded file of a catalogue: <root>/<catalogue>.db.
  std::filesystem::path embedded_catalogue(std::string_view catalogue) const;

  /// The file whose presence says that a catalogue is on a server: <root>/<catalogue>.odbc, which
  /// holds the connection string.
  std::filesystem::path server_catalogue(std::string_view catalogue) const;

 private:
  std::filesystem::path root_;
};

}  // namespace tela
