// tela_catalogue: makes an embedded catalogue, fills it, reads it out, checks it and moves it to a
// server.

#include <unistd.h>

#include <chrono>
#include <ctime>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/arguments.h"
#include "apps/tela_catalogue/commands/commands.h"
#include "apps/tela_catalogue/commands/kept_commands.h"
#include "apps/tela_catalogue/commands/server_commands.h"
#include "platform/catalogue/catalogue_client.h"
#include "platform/paths/paths.h"

namespace {

tela::Date today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return std::chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday;
}

constexpr std::string_view catalogue_name = "TelaData";
/// Rows of a large table are brought back in their own time.
constexpr std::chrono::minutes long_statement{30};

/// The embedded catalogue or the server, as the program finds it.
std::unique_ptr<tela::Connection> open_catalogue(const tela::Paths& paths) {
  auto connection = tela::make_catalogue_factory(paths)();
  connection->set_command_timeout(long_statement);
  connection->open("Initial Catalog=" + std::string(catalogue_name));
  return connection;
}

bool run(const tela::CatalogueArguments& arguments, tela::Messages& messages) {
  using tela::CatalogueCommand;
  const tela::Paths paths =
      arguments.root ? tela::Paths(*arguments.root) : tela::Paths::from_environment();
  const auto catalogue = paths.embedded_catalogue(catalogue_name);
  switch (arguments.command) {
    case CatalogueCommand::create:
      tela::create_catalogue(catalogue, messages);
      return true;
    case CatalogueCommand::demo:
      tela::make_demo_catalogue(catalogue, arguments.demo, messages);
      return true;
    case CatalogueCommand::import_rows:
      tela::import_table(catalogue, arguments.table, arguments.file, messages);
      return true;
    case CatalogueCommand::export_rows:
      tela::export_table(catalogue, arguments.table, arguments.file, messages);
      return true;
    case CatalogueCommand::check:
      return tela::check_catalogue(catalogue, messages);
    case CatalogueCommand::backup:
      tela::back_up_catalogue(catalogue, arguments.file, messages);
      return true;
    case CatalogueCommand::list_kept:
      tela::list_kept(paths.way_back(), std::cout);
      return true;
    case CatalogueCommand::restore:
      tela::restore_kept(*open_catalogue(paths), paths.way_back(), arguments.kept, messages);
      return true;
    case CatalogueCommand::script:
      tela::write_server_script(std::cout);
      return true;
    case CatalogueCommand::copy:
      tela::copy_catalogue(catalogue, paths.server_catalogue(catalogue_name), messages);
      return true;
    case CatalogueCommand::workbooks:
      tela::make_workbooks(paths, "soffice", messages);
      return true;
    case CatalogueCommand::help:
      std::cout << tela::usage_text();
      return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  tela::Messages messages(std::cerr, isatty(STDERR_FILENO) != 0);
  try {
    const std::vector<std::string_view> words(argv + 1, argv + argc);
    return run(tela::parse_arguments(words, today()), messages) ? 0 : 1;
  } catch (const tela::UsageError& error) {
    messages.say("tela_catalogue: " + std::string(error.what()));
    messages.say(tela::usage_text());
    return 2;
  } catch (const std::exception& error) {
    messages.say("tela_catalogue: " + std::string(error.what()));
    return 1;
  }
}
