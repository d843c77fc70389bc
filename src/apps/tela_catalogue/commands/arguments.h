// The command line of tela_catalogue.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "apps/tela_catalogue/demo/demo_catalogue.h"

namespace tela {

/// A command line that cannot be understood. Its text says what is wrong with it.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class CatalogueCommand {
  create,
  demo,
  import_rows,
  export_rows,
  check,
  script,
  copy,
  workbooks,
  list_kept,
  restore,
  backup,
  help
};

struct CatalogueArguments {
  std::optional<std::filesystem::path> root;  ///< the platform root, where it is given
  CatalogueCommand command = CatalogueCommand::check;
  demo::DemoOptions demo;      ///< of demo
  std::string table;           ///< of import and export
  std::filesystem::path file;  ///< of import, export and backup
  std::string kept;            ///< of restore: the name of a folder of kept rows
};

/// Reads the words behind the program's name. A demo ends on `today` unless it is told otherwise.
/// Throws UsageError.
CatalogueArguments parse_arguments(std::span<const std::string_view> words, Date today);

/// How the program is called, for a user who called it otherwise.
std::string_view usage_text();

}  // namespace tela
