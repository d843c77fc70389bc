// Scripts of statements and what they give, which read like a session:
//
//   > select icode from items     a statement
//   | 101|'Ponni Rice'            a row that it gives, fields parted by |, texts in quotes
//   ! Invalid column name 'x'.    the error that it gives
//   # anything                    a comment
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tela::test {

struct ScriptedStatement {
  int line = 0;
  std::string sql;
  std::vector<std::string> rows;
  std::string error;
};

/// The statements of a script file of tests/embedded, in order.
inline std::vector<ScriptedStatement> read_script(const std::string& name) {
  const auto path = std::filesystem::path(TELA_SOURCE_DIR) / "tests" / "embedded" / name;
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::vector<ScriptedStatement> statements;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    const std::string rest = line.size() > 2 ? line.substr(2) : "";
    if (line[0] == '>') {
      statements.push_back({number, rest, {}, {}});
    } else if (line[0] == '|' && !statements.empty()) {
      statements.back().rows.push_back(rest);
    } else if (line[0] == '!' && !statements.empty()) {
      statements.back().error = rest;
    } else {
      throw std::runtime_error(name + ":" + std::to_string(number) + ": no such line");
    }
  }
  return statements;
}

}  // namespace tela::test
