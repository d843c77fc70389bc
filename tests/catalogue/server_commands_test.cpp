// A catalogue that moves to a server: the statements that carry it, and what the copy refuses.
#include "apps/tela_catalogue/commands/server_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/insert_text.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// A server that counts the rows of its tables and keeps what it is told.
class RecordingServer final : public Connection {
 public:
  void open(std::string_view /*connection_string*/) override {}
  void set_cursor_location(CursorLocation /*location*/) override {}
  void set_command_timeout(std::chrono::seconds /*timeout*/) override {}
  bool in_transaction() const override { return open_; }

  void begin_trans() override { note("begin", true); }
  void commit_trans() override { note("commit", false); }
  void rollback_trans() override { note("roll back", false); }

  RowSet execute(std::string_view sql) override {
    const std::string text(sql);
    if (text == fails_) throw DatabaseError(DatabaseError::Kind::storage, "The log is full.");
    constexpr std::string_view count = "select count(*) from ";
    if (!text.starts_with(count)) {
      heard.push_back(text);
      return {};
    }
    const auto table = counts.find(text.substr(count.size()));
    if (table == counts.end()) throw DatabaseError(DatabaseError::Kind::unknown_name, "Unknown.");
    return {{{"", FieldType::whole_number}}, {{table->second}}};
  }

  void fail_on(std::string sql) { fails_ = std::move(sql); }

  std::map<std::string, std::int64_t> counts = {{"Items", 0}, {"tword", 1}};
  std::vector<std::string> heard;

 private:
  void note(const char* what, bool open) {
    heard.emplace_back(what);
    open_ = open;
  }

  bool open_ = false;
  std::string fails_;
};

class CopyToServer : public ::testing::Test {
 protected:
  CopyToServer() {
    const std::string_view schema =
        "create table Items (iCode numeric(18,0), iName varchar(60), mrp float, CreatedDate "
        "date)\nGO\n"
        "create table tword (tword1 varchar(40))\nGO\ninsert into tword values ('COME "
        "AGAIN')\nGO\n";
    create_embedded_catalogue(file_, {&schema, 1});
    source_.emplace(file_);
  }
  void add_items(int count) {
    source_->connection().begin_trans();
    for (int code = 1; code <= count; ++code)
      source_->connection().execute("insert into Items values (" + std::to_string(code) +
                                    ",'rice',10.5,'05/Jan/2024')");
    source_->connection().commit_trans();
  }

  std::string refusal() {
    try {
      copy_to_server(*source_, server_, messages_);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "not refused";
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "TelaData.db";
  std::optional<EmbeddedCatalogue> source_;
  RecordingServer server_;
  std::ostringstream said_;
  Messages messages_{said_, false};
};

TEST(SqlLiteral, ReadsBackAsTheValue) {
  EXPECT_EQ(sql_literal({}), "null");
  EXPECT_EQ(sql_literal(std::string("Amma's")), "'Amma''s'");
  EXPECT_EQ(sql_literal(std::string("கடை")), "N'கடை'");
  EXPECT_EQ(sql_literal(std::int64_t{123456789012345678}), "123456789012345678");
  EXPECT_EQ(sql_literal(0.1), "1e-01");
  EXPECT_EQ(sql_literal(-12345.678), "-1.2345678e+04");
  EXPECT_EQ(sql_literal(Date{std::chrono::year(2024), std::chrono::month(1), std::chrono::day(5)}),
            "'20240105'");
  EXPECT_EQ(sql_literal(TimeOfDay{9, 5, 0}), "'09:05:00'");
}

TEST_F(CopyToServer, SendsEachTableInOneTransactionManyRowsAStatement) {
  add_items(2);
  copy_to_server(*source_, server_, messages_);
  EXPECT_THAT(server_.heard,
              ElementsAre("begin",
                          "insert into Items (iCode,iName,mrp,CreatedDate) values\n"
                          "(1,'rice',1.05e+01,'20240105'),\n(2,'rice',1.05e+01,'20240105')",
                          "commit", "begin", "delete from tword",
                          "insert into tword (tword1) values\n('COME AGAIN')", "commit"));
  EXPECT_EQ(said_.str(), "Items: 2 rows\ntword: 1 rows\n");
}

TEST_F(CopyToServer, CutsManyRowsIntoStatements) {
  add_items(2 * static_cast<int>(InsertText::most_rows) + 1);
  copy_to_server(*source_, server_, messages_);
  EXPECT_THAT(server_.heard, ::testing::SizeIs(5 + 4));
  EXPECT_THAT(server_.heard.at(3), ::testing::EndsWith("(501,'rice',1.05e+01,'20240105')"));
}

TEST_F(CopyToServer, LeavesATableThatWasCopiedBefore) {
  add_items(2);
  server_.counts["Items"] = 2;
  copy_to_server(*source_, server_, messages_);
  EXPECT_THAT(server_.heard.at(1), StartsWith("delete from tword"));
  EXPECT_THAT(said_.str(), HasSubstr("Items: all 2 rows are there already"));
}

TEST_F(CopyToServer, RefusesBeforeItWritesAnything) {
  server_.counts["tword"] = 3;
  EXPECT_EQ(refusal(), "tword on the server holds 3 rows of its own; nothing is copied");
  server_.counts.erase("tword");
  EXPECT_THAT(refusal(), StartsWith("the server has no table tword"));
  EXPECT_THAT(server_.heard, IsEmpty());
}

TEST_F(CopyToServer, TableThatFailsIsRolledBackAndNamed) {
  add_items(1);
  server_.fail_on("delete from tword");
  EXPECT_EQ(refusal(), "tword: The log is full.");
  EXPECT_EQ(server_.heard.back(), "roll back");
  EXPECT_FALSE(server_.in_transaction());
}

TEST(ServerScript, IsMadeOfBatches) {
  std::ostringstream out;
  write_server_script(out);
  const std::string script = out.str();
  for (const char* batch : {"create table SalesTemp (", "create table SalesPrint (",
                            "insert into PointsSet values", "create index Sales_BillNo"})
    EXPECT_THAT(script, HasSubstr(batch));
  // The server takes a procedure as the only statement of its batch.
  const std::size_t procedure = script.find("create procedure spGetProfitNew");
  const std::string before = script.substr(0, procedure);
  EXPECT_EQ(before.find("create", before.rfind("\nGO\n")), std::string::npos);
}

}  // namespace
}  // namespace tela::testing
