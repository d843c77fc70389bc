// The adapter over the driver of another engine, which is built without wide calls: what every
// connection owes, whatever stands behind it.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "database/connection_contract.h"
#include "platform/odbc/odbc_connection.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

/// A file of the other engine.
class OdbcCatalogue : public ContractCatalogue {
 public:
  std::unique_ptr<Connection> connection() override {
    return make_odbc_connection(
        "DRIVER=libsqlite3odbc.so;Database=" + (folder_ / "shop.db").string(), DriverText::utf8);
  }

 private:
  TemporaryFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Odbc, ConnectionContract,
                         ::testing::Values(ContractEngine{
                             "odbc", [] { return std::make_unique<OdbcCatalogue>(); }}),
                         [](const auto& engine) { return engine.param.name; });

class NarrowDriver : public ::testing::Test {
 protected:
  NarrowDriver() { connection_->open(""); }

  Value single(const std::string& sql) { return connection_->execute(sql).rows.at(0).at(0); }

  OdbcCatalogue catalogue_;
  std::unique_ptr<Connection> connection_ = catalogue_.connection();
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

}  // namespace
}  // namespace tela::testing
