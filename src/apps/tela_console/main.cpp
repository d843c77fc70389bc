// tela_console: the whole program, driven by a script. It prints one JSON object a line as things
// happen.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/program/program.h"
#include "apps/tela_console/painters.h"
#include "display/scripted/script_runner.h"
#include "display/scripted/told_port.h"
#include "display/scripted/told_sheets.h"
#include "platform/sheet/csv_sheets.h"

namespace {

constexpr const char* kUsage = "usage: tela_console [--root DIR] [--sheets DIR] [FILE]\n";

constexpr const char* kHelp = R"(
Runs the commands of FILE, or of the standard input, one a line, and prints what happens, one JSON
object a line. docs/console.md describes the commands.

  --root DIR     the folder that stands for the shop's machine; else $TELA_ROOT, else
                 $XDG_DATA_HOME/tela or ~/.local/share/tela
  --sheets DIR   write spreadsheet exports as CSV files into DIR, without LibreOffice
  --help         print this

Exit code: 0 if every command ran, 1 if one did not, 2 for a command line that is not understood.
)";

enum ExitCode { all_ran = 0, a_command_failed = 1, bad_usage = 2 };

struct Options {
  bool help = false;
  std::optional<std::string> root;
  std::optional<std::string> sheets;  // where spreadsheet exports go instead of the office program
  std::optional<std::string> script;
};

std::optional<Options> read_options(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--help")
      options.help = true;
    else if (arguments[i] == "--root" && i + 1 < arguments.size())
      options.root = arguments[++i];
    else if (arguments[i] == "--sheets" && i + 1 < arguments.size())
      options.sheets = arguments[++i];
    else if (arguments[i].starts_with("--") || options.script)
      return std::nullopt;
    else
      options.script = arguments[i];
  }
  return options;
}

void print(const tela::Json& event) {
  std::cout << event.dump(-1, ' ', false, tela::Json::error_handler_t::replace) << '\n'
            << std::flush;
}

int run(const Options& options) {
  std::ifstream file;
  if (options.script) {
    file.open(*options.script);
    if (!file || std::filesystem::is_directory(*options.script)) {
      std::cerr << "tela_console: cannot read " << *options.script << '\n';
      return bad_usage;
    }
  }
  tela::ScriptedDisplay display(print);
  const tela::Paths paths =
      options.root ? tela::Paths(*options.root) : tela::Paths::from_environment();
  tela::Platform platform = tela::make_platform(paths);
  tela::add_painters(platform);
  platform.open_port = tela::tell_printed(platform.open_port, display);
  if (options.sheets) platform.sheets = tela::make_csv_sheets(paths, *options.sheets);
  platform.sheets = tela::tell_sheets(std::move(platform.sheets), display);
  tela::Program program(std::move(platform), display);
  tela::ScriptRunner runner(program.state(), display);
  return runner.run(options.script ? file : std::cin) ? all_ran : a_command_failed;
}

}  // namespace

int main(int argc, char** argv) {
  const auto options = read_options({argv + 1, argv + argc});
  if (!options) {
    std::cerr << kUsage;
    return bad_usage;
  }
  if (options->help) {
    std::cout << kUsage << kHelp;
    return all_ran;
  }
  try {
    return run(*options);
  } catch (const std::exception& failure) {
    std::cerr << "tela_console: " << failure.what() << '\n';
    return a_command_failed;
  }
}
