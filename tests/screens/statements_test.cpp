// What tests/embedded/statements.txt says that the screens ask is what they ask.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "source_folder/source_folder.h"
#include "support/recorded_statements.h"

namespace tela::testing {
namespace {

void write(std::ostream& out, const RecordedStatement& statement) {
  out << "> " << statement.sql << '\n';
  for (const std::string& row : statement.rows) out << "| " << row << '\n';
  if (!statement.error.empty()) out << "! " << statement.error << '\n';
}

/// The script anew: behind each command what the screens run by now; the rest as it stands.
std::string played(const std::string& script) {
  RecordedShop shop;
  std::istringstream in(script);
  std::ostringstream out;
  bool is_of_screen = false;
  for (std::string line; std::getline(in, line);) {
    const char kind = line.empty() ? '#' : line[0];
    if (kind == '<') is_of_screen = true;
    if (kind == '#') is_of_screen = false;
    if (kind == '<' || !is_of_screen) out << line << '\n';
    if (kind == '<')
      for (const RecordedStatement& statement : shop.run(line.substr(2))) write(out, statement);
    if (kind == '>' && !is_of_screen) shop.execute(line.substr(2));
  }
  return out.str();
}

TEST(ScreenStatements, AreThoseOfTheScript) {
  const auto path = source_folder() / "tests/embedded/statements.txt";
  std::ifstream file(path);
  const std::string script(std::istreambuf_iterator<char>(file), {});
  const std::string now = played(script);
  EXPECT_EQ(script, now);
  if (std::getenv("TELA_WRITE_STATEMENTS") != nullptr) std::ofstream(path) << now;
}

}  // namespace
}  // namespace tela::testing
