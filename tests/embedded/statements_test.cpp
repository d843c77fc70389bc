// Every statement of the system, and the server's meaning where SQLite alone would differ, through
// the embedded connection, on the catalogue's own schema with the small set of rows of rows.txt.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "embedded/statement_script.h"
#include "platform/embedded/embedded_catalogue.h"
#include "source_folder/source_folder.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

std::string source_text(const std::string& name) {
  std::ifstream file(source_folder() / name);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Statements : public testing::TestWithParam<const char*> {
 protected:
  Statements() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    std::vector<std::string> texts;
    for (const char* name : {"schema", "staging", "procedures", "start_rows", "indexes"}) {
      texts.push_back(source_text("catalogue/" + std::string(name) + ".sql"));
    }
    const std::vector<std::string_view> scripts(texts.begin(), texts.end());
    create_embedded_catalogue(file(), scripts);
    connection_ = make_embedded_connection(file());
    connection_->open("");
    for (const auto& statement : test::read_script("rows.txt")) connection_->execute(statement.sql);
  }
  ~Statements() override {
    connection_.reset();
    fs::remove_all(folder_);
  }

  fs::path file() const { return folder_ / "TelaData.db"; }

  void run(const test::ScriptedStatement& statement) {
    try {
      const RowSet rows = connection_->execute(statement.sql);
      EXPECT_EQ(statement.error, "") << "no error came";
      EXPECT_EQ(test::row_texts(rows), statement.rows);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(std::string(error.what()), statement.error);
    }
  }

  fs::path folder_ = fs::temp_directory_path() / ("tela_statements_" + std::string(GetParam()));
  std::unique_ptr<Connection> connection_;
};

TEST_P(Statements, GiveTheirRows) {
  const std::string script = std::string(GetParam()) + ".txt";
  for (const auto& statement : test::read_script(script)) {
    SCOPED_TRACE(script + ":" + std::to_string(statement.line) + ": " + statement.sql);
    run(statement);
  }
}

INSTANTIATE_TEST_SUITE_P(Scripts, Statements, testing::Values("statements", "meaning"),
                         [](const auto& script) { return std::string(script.param); });

}  // namespace
}  // namespace tela
