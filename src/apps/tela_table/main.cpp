// tela_table: reads what tela_console prints and writes its screens and rows as aligned tables.
//
// usage: tela_console SCRIPT | tela_table [CONTROL=LABEL...]
//
// A control that is given with a label is printed below the screen's grid. Exit 1 if the console
// told of an error, 2 for bad usage.

#include <exception>
#include <iostream>
#include <string>

#include "apps/tela_table/text_table/screen_text.h"

namespace {

constexpr const char* kUsage =
    "usage: tela_console SCRIPT | tela_table [CONTROL=LABEL...]\n\n"
    "Writes what tela_console prints as aligned tables. A control that is given with a label is\n"
    "printed below its screen's table.\n\n"
    "Exit code: 0, 1 if the console told of an error, 2 for a command line that is not "
    "understood.\n";

}  // namespace

int main(int argc, char** argv) {
  std::vector<tela::LabelledControl> controls;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    const std::size_t sign = argument.find('=');
    if (sign == std::string::npos) {
      std::ostream& answer = argument == "--help" ? std::cout : std::cerr;
      answer << kUsage;
      return argument == "--help" ? 0 : 2;
    }
    controls.push_back({argument.substr(0, sign), argument.substr(sign + 1)});
  }
  int exit_code = 0;
  for (std::string line; std::getline(std::cin, line);) {
    try {
      std::cout << tela::console_text(line, controls);
    } catch (const std::exception& error) {
      std::cerr << "tela_table: " << error.what() << '\n';
      exit_code = 1;
    }
  }
  return exit_code;
}
