// The adapter over the driver of another engine, which is built without wide calls: what a
// connection owes whatever stands behind it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/odbc/odbc_connection.h"

namespace tela::testing {
namespace {

class NarrowDriver : public ::testing::Test {
 protected:
  NarrowDriver() {
    std::filesystem::remove(file_);
    connection_->open("");
  }
  ~NarrowDriver() override {
    connection_.reset();
    std::filesystem::remove(file_);
  }

  Value single(const std::string& sql) { return connection_->execute(sql).rows.at(0).at(0); }

  std::filesystem::path file_ =
      std::filesystem::path(::testing::TempDir()) /
      ("tela_narrow_" +
       std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
  std::unique_ptr<Connection> connection_ =
      make_odbc_connection("DRIVER=libsqlite3odbc.so;Database=" + file_.string(), DriverText::utf8);
};

TEST_F(NarrowDriver, TextOfAnyLengthKeepsItsCharacters) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "அ€";
  connection_->execute("create table Items (iName text)");
  connection_->execute("insert into Items values ('" + text + "')");
  EXPECT_EQ(single("select iName from Items"), Value(text));
}

TEST_F(NarrowDriver, TemporaryTablesLiveOnTheirConnection) {
  connection_->execute("create temp table CostCompare (SaleRate float)");
  connection_->execute("insert into CostCompare values (12.5)");
  EXPECT_EQ(single("select SaleRate from CostCompare"), Value(12.5));
}

TEST_F(NarrowDriver, UpdateThatMeetsNoRowIsNoFailure) {
  connection_->execute("create table Items (iCode integer)");
  EXPECT_TRUE(connection_->execute("update Items set iCode=1 where iCode=2").fields.empty());
}

TEST_F(NarrowDriver, DestroyedConnectionRollsBack) {
  connection_->execute("create table Items (iCode integer)");
  connection_->begin_trans();
  connection_->execute("insert into Items values (1)");
  connection_ =
      make_odbc_connection("DRIVER=libsqlite3odbc.so;Database=" + file_.string(), DriverText::utf8);
  connection_->open("");
  EXPECT_EQ(single("select count(*) from Items"), Value(std::int64_t{0}));
}

}  // namespace
}  // namespace tela::testing
