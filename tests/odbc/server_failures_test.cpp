// A server that refuses, hangs, dies or drops a transaction: the message, and what the connection
// does from then on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "odbc/tds_server.h"
#include "platform/odbc/odbc_connection.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Kind = DatabaseError::Kind;

/// The failure of `action`; none is one of the test.
DatabaseError failure_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error;
  }
  ADD_FAILURE() << "It did not fail.";
  return {Kind::other, ""};
}

class ServerFailures : public ::testing::Test {
 protected:
  ServerFailures() { connection_->open("Initial Catalog=TelaData"); }

  DatabaseError failure_of_statement(const std::string& sql) {
    return failure_of([&] { connection_->execute(sql); });
  }

  TdsServer server_;
  std::unique_ptr<Connection> connection_ = make_odbc_connection(server_.odbc_text());
};

TEST(ServerLogin, WrongPasswordIsSaidWithoutThePassword) {
  TdsServer server;
  server.refuse_logins();
  const auto connection = make_odbc_connection(server.odbc_text("zub8pass"));
  const DatabaseError error = failure_of([&] { connection->open(""); });
  EXPECT_EQ(error.kind(), Kind::connection);
  EXPECT_EQ(error.native_code(), 18456);
  EXPECT_THAT(error.what(), HasSubstr("refused the user name or the password"));
  EXPECT_THAT(error.what(), Not(HasSubstr("zub8pass")));
}

TEST(ServerLogin, ServerThatIsNotThereIsSaid) {
  std::optional<TdsServer> server(std::in_place);
  const std::string text = server->odbc_text();
  server.reset();
  const auto connection = make_odbc_connection(text);
  const DatabaseError error = failure_of([&] { connection->open(""); });
  EXPECT_EQ(error.kind(), Kind::connection);
  EXPECT_THAT(error.what(), HasSubstr("The server cannot be reached: "));
}

TEST(ServerLogin, MissingDriverIsNamed) {
  const auto connection = make_odbc_connection("DRIVER=libnosuch.so;SERVER=x;PWD=zub8pass");
  const DatabaseError error = failure_of([&] { connection->open(""); });
  EXPECT_EQ(error.kind(), Kind::connection);
  EXPECT_THAT(error.what(), HasSubstr("libnosuch.so"));
  EXPECT_THAT(error.what(), Not(HasSubstr("zub8pass")));
}

TEST_F(ServerFailures, SayWhatTheServerSays) {
  struct Case {
    std::int32_t number;
    const char16_t* words;
    Kind kind;
  };
  const std::vector<Case> cases = {
      {208, u"Invalid object name 'SalesPrint1'.", Kind::unknown_name},
      {207, u"Invalid column name 'Qyt'.", Kind::unknown_name},
      {2812, u"Could not find stored procedure 'spGetProfitNew'.", Kind::unknown_name},
      {102, u"Incorrect syntax near 'from'.", Kind::syntax},
      {241, u"Conversion failed when converting date and/or time from character string.",
       Kind::value},
      {8134, u"Divide by zero error encountered.", Kind::value},
      {2628, u"String or binary data would be truncated.", Kind::value},
      {229, u"The DELETE permission was denied on the object 'Items'.", Kind::other},
      {1205, u"Transaction was deadlocked on lock resources.", Kind::busy},
      {9002, u"The transaction log for database 'TelaData' is full.", Kind::storage},
  };
  for (const Case& each : cases) {
    server_.on("statement", Reply().error(each.number, each.words));
    const DatabaseError error = failure_of_statement("statement");
    EXPECT_EQ(error.kind(), each.kind) << each.number;
    EXPECT_EQ(error.native_code(), each.number);
    EXPECT_THAT(error.what(), HasSubstr(std::string(each.words, each.words + 15))) << each.number;
  }
  EXPECT_NO_THROW(connection_->execute("the connection lives on"));
}

TEST_F(ServerFailures, OfALaterStatementOfABatchAreNotPassedOver) {
  server_.on("two", Reply()
                        .columns({wire::integer("n", 4)})
                        .row({wire::number(1, 4)})
                        .done(1, true)
                        .error(8134, u"Divide by zero error encountered."));
  EXPECT_EQ(failure_of_statement("two").kind(), Kind::value);
}

TEST_F(ServerFailures, AmongTheRowsLeaveNoHalfResult) {
  server_.on("half", Reply()
                         .columns({wire::integer("n", 4)})
                         .row({wire::number(1, 4)})
                         .error(8134, u"Divide by zero error encountered."));
  EXPECT_EQ(failure_of_statement("half").kind(), Kind::value);
}

TEST_F(ServerFailures, CommandThatOutlastsItsTimeOutIsStopped) {
  server_.on("slow", Reply::only(Reply::Ending::busy));
  connection_->set_command_timeout(std::chrono::seconds(1));
  const DatabaseError error = failure_of_statement("slow");
  EXPECT_EQ(error.kind(), Kind::busy);
  EXPECT_THAT(error.what(), HasSubstr("took longer than its time-out"));
  EXPECT_NO_THROW(connection_->execute("the connection lives on"));
}

TEST_F(ServerFailures, CancelledCommandIsStoppedAndItsTransactionCanBeRolledBack) {
  server_.on("slow", Reply::only(Reply::Ending::busy));
  connection_->set_command_timeout(std::chrono::seconds(30));
  connection_->begin_trans();
  connection_->execute("Delete from SalesPrint");
  int asked = 0;
  connection_->set_keep_going([&](std::int64_t) { return ++asked < 4; });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(connection_->execute("slow"), Cancelled);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  connection_->set_keep_going({});
  EXPECT_NO_THROW(connection_->rollback_trans());
  EXPECT_EQ(server_.received().back(), "roll back");
  EXPECT_THAT(server_.received(), Not(Contains("commit")));
  EXPECT_NO_THROW(connection_->execute("the connection lives on"));
}

TEST_F(ServerFailures, ServerThatNoLongerAnswersIsLost) {
  server_.on("asleep", Reply::only(Reply::Ending::deaf));
  connection_->set_command_timeout(std::chrono::seconds(1));
  EXPECT_THAT(failure_of_statement("asleep").what(), HasSubstr("connection to the server is lost"));
}

TEST_F(ServerFailures, LostConnectionIsSaidAndTheNextStatementReconnects) {
  server_.on("dies", Reply::only(Reply::Ending::hang_up));
  const DatabaseError error = failure_of_statement("dies");
  EXPECT_EQ(error.kind(), Kind::connection);
  EXPECT_THAT(error.what(), HasSubstr("The connection to the server is lost."));
  EXPECT_NO_THROW(connection_->execute("select 1"));
}

TEST_F(ServerFailures, ServerThatStaysAwayIsSaidEachTime) {
  server_.on("dies", Reply::only(Reply::Ending::hang_up));
  failure_of_statement("dies");
  server_.refuse_logins();
  for (int attempt = 0; attempt < 2; ++attempt)
    EXPECT_THAT(failure_of_statement("select 1").what(), HasSubstr("refused the user name"));
}

TEST_F(ServerFailures, TransactionGoesWithTheConnection) {
  server_.on("dies", Reply::only(Reply::Ending::hang_up));
  connection_->begin_trans();
  connection_->execute("Delete from SalesPrint");
  EXPECT_THAT(failure_of_statement("dies").what(), HasSubstr("nothing of it is stored"));
  EXPECT_TRUE(connection_->in_transaction());
  EXPECT_THROW(connection_->commit_trans(), DatabaseError);
  EXPECT_THROW(connection_->execute("Insert into SalesPrint"), DatabaseError);
  EXPECT_NO_THROW(connection_->rollback_trans());
  EXPECT_FALSE(connection_->in_transaction());
  connection_->execute("after");
  EXPECT_THAT(server_.received(), ElementsAre("begin", "Delete from SalesPrint", "dies", "after"));
}

TEST_F(ServerFailures, NothingIsStoredByItselfOnceTheServerDroppedTheTransaction) {
  server_.on("deadlocked", Reply().rolled_back().error(1205, u"Deadlocked."));
  server_.on("select @@trancount",
             Reply().columns({wire::integer("", 4)}).row({wire::number(0, 4)}).done(1));
  connection_->begin_trans();
  connection_->execute("Delete from SalesPrint");
  EXPECT_THAT(failure_of_statement("deadlocked").what(), HasSubstr("nothing of it is stored"));
  EXPECT_THROW(connection_->execute("Insert into SalesPrint"), DatabaseError);
  EXPECT_THROW(connection_->commit_trans(), DatabaseError);
  connection_->rollback_trans();
  connection_->execute("after");
  EXPECT_THAT(server_.received(), Not(::testing::Contains("Insert into SalesPrint")));
  EXPECT_EQ(server_.received().back(), "after");
}

TEST_F(ServerFailures, FailedStatementLeavesTheTransactionOpen) {
  server_.on("fails", Reply().error(8134, u"Divide by zero error encountered."));
  server_.on("select @@trancount",
             Reply().columns({wire::integer("", 4)}).row({wire::number(1, 4)}).done(1));
  connection_->begin_trans();
  connection_->execute("Delete from SalesPrint");
  EXPECT_THAT(failure_of_statement("fails").what(), Not(HasSubstr("stored")));
  connection_->execute("Insert into SalesPrint");
  connection_->commit_trans();
  EXPECT_THAT(server_.received(), ::testing::Contains("commit"));
}

}  // namespace
}  // namespace tela::testing
