// Transactions and locks of the embedded catalogue, beside another program.
#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "embedded/shop.h"

namespace tela::testing {
namespace {

using ::testing::HasSubstr;
using Kind = DatabaseError::Kind;

constexpr const char* other_bill = "INSERT INTO Sales(BillNo,Qty) VALUES(900,1)";

class TransactionsTest : public ::testing::Test {
 protected:
  std::int64_t count(const char* table) {
    return std::get<std::int64_t>(
        shop_.connect()->execute(std::string("select count(*) from ") + table).rows.at(0).at(0));
  }

  Kind failure_of(const std::string& sql) {
    try {
      program_->execute(sql);
    } catch (const DatabaseError& error) {
      message_ = error.what();
      return error.kind();
    }
    ADD_FAILURE() << sql << " did not fail.";
    return Kind::other;
  }

  Shop shop_;
  std::unique_ptr<Connection> program_ = shop_.connect();
  OtherProgram till_{shop_.file};
  std::string message_;
};

TEST_F(TransactionsTest, BeginningOneHoldsNobodyUp) {
  program_->begin_trans();
  EXPECT_EQ(till_.run(other_bill), SQLITE_OK);
  program_->execute("delete from Sales");
  program_->commit_trans();
  EXPECT_EQ(count("Sales"), 0);
}

TEST_F(TransactionsTest, WhatWasReadInOneStaysTrueUntilItsChange) {
  program_->execute("insert into Sales values(1,'05/Jan/2024','10:30:00','rice',2)");
  program_->begin_trans();
  program_->execute("select sum(Qty) from Sales");
  EXPECT_EQ(till_.run(other_bill), SQLITE_BUSY);
  program_->execute("update Sales set Qty=3");
  program_->commit_trans();
  EXPECT_EQ(till_.run(other_bill), SQLITE_OK);
}

TEST_F(TransactionsTest, AfterItHasHeldTheLockItLeavesTheTillsTheirTurn) {
  using std::chrono::steady_clock;
  program_->begin_trans();
  program_->execute("delete from Sales");
  const auto held_from = steady_clock::now();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  const auto held_to = steady_clock::now();
  program_->commit_trans();
  program_->execute("delete from Sales");
  EXPECT_GE(steady_clock::now() - held_to, held_to - held_from);
}

TEST_F(TransactionsTest, FillingATemporaryTableHoldsNobodyUp) {
  program_->begin_trans();
  program_->execute("create table #Lines (iName varchar(20), Qty float)");
  program_->execute("insert into #Lines select iName,Qty from Sales");
  EXPECT_EQ(till_.run(other_bill), SQLITE_OK);
  program_->commit_trans();
  program_->execute("drop table #Lines");
}

TEST_F(TransactionsTest, TheCatalogueIsWrittenAfterATemporaryTableThoughATillBilledMeanwhile) {
  program_->begin_trans();
  program_->execute("create table #Lines (iName varchar(20), Qty float)");
  program_->execute("insert into #Lines select iName,Qty from Sales");
  EXPECT_EQ(program_->execute("select Qty from #Lines").rows.size(), 0u);
  ASSERT_EQ(till_.run(other_bill), SQLITE_OK);
  program_->execute("insert into SalesPrint select 'lines',count(*) from #Lines");
  program_->execute("insert into SalesPrint select 'bills',count(*) from Sales");
  EXPECT_EQ(till_.run(other_bill), SQLITE_BUSY) << "what it has written is its own";
  program_->commit_trans();
  const RowSet staged = program_->execute("select Qty from SalesPrint order by iName");
  EXPECT_EQ(staged.rows, (std::vector<std::vector<Value>>{{1.0}, {0.0}}));
  EXPECT_EQ(count("Sales"), 1);
}

TEST_F(TransactionsTest, WhatIsReadAfterATemporaryTableStaysTrueUntilItsChange) {
  program_->begin_trans();
  program_->execute("create table #Lines (Qty float)");
  program_->execute("select sum(Qty) from Sales");
  EXPECT_EQ(till_.run(other_bill), SQLITE_BUSY);
  program_->commit_trans();
}

TEST_F(TransactionsTest, ATemporaryTableOfATransactionIsUndoneWithItsChangesOfTheCatalogue) {
  program_->begin_trans();
  program_->execute("create table #Lines (iName varchar(20), Qty float)");
  program_->execute("insert into #Lines values('rice',1)");
  ASSERT_EQ(till_.run("BEGIN IMMEDIATE"), SQLITE_OK);
  program_->set_command_timeout(std::chrono::seconds(1));
  EXPECT_EQ(failure_of("insert into SalesPrint select * from #Lines"), Kind::busy);
  ASSERT_EQ(till_.run("ROLLBACK"), SQLITE_OK);
  program_->execute("insert into SalesPrint select * from #Lines");
  program_->rollback_trans();
  EXPECT_EQ(count("SalesPrint"), 0);
  program_->execute("create table #Lines (Qty float)");
}

TEST_F(TransactionsTest, ATemporaryTableIsItsConnectionsOwnAndUndoneWithItsTransaction) {
  program_->begin_trans();
  program_->execute("create table #Lines (Qty float)");
  program_->rollback_trans();
  EXPECT_EQ(failure_of("select Qty from #Lines"), Kind::unknown_name);
  program_->execute("create table #Lines (Qty float)");
  EXPECT_EQ(program_->execute("select Qty from #Lines").fields.size(), 1u);
  EXPECT_THROW(shop_.connect()->execute("select Qty from #Lines"), DatabaseError);
}

// The till has the right to write all the while: a select that ran under it would only fail as
// busy.
TEST_F(TransactionsTest, AnInsertReadsItsRowsBeforeItTakesTheLock) {
  ASSERT_EQ(till_.run(other_bill), SQLITE_OK);
  ASSERT_EQ(till_.run("BEGIN IMMEDIATE"), SQLITE_OK);
  program_->set_command_timeout(std::chrono::seconds(1));
  const std::string staging = "insert into SalesPrint select iName,Qty/(BillNo-900) from Sales";
  EXPECT_EQ(failure_of(staging), Kind::value);
  program_->begin_trans();
  EXPECT_EQ(failure_of(staging), Kind::value);
  EXPECT_THAT(message_, HasSubstr("Divide by zero"));
  program_->rollback_trans();
}

TEST_F(TransactionsTest, AnInsertThatFailsAtALaterRowAddsNone) {
  program_->execute("insert into Sales values(1,null,null,'rice',2)");
  program_->execute("insert into Sales values(0,null,null,'oil',2)");
  program_->begin_trans();
  program_->execute("delete from SalesPrint");
  EXPECT_EQ(failure_of("insert into SalesPrint select iName,Qty/BillNo from Sales"), Kind::value);
  EXPECT_EQ(failure_of("insert into SalesPrint values('rice',1),('oil','much')"), Kind::value);
  program_->commit_trans();
  EXPECT_EQ(count("SalesPrint"), 0);
}

TEST_F(TransactionsTest, ManyRowsPassThroughTheSpoolInOrder) {
  for (int i = 0; i < 10; ++i)
    program_->execute("insert into Sales values(" + std::to_string(i) + ",null,null,null,1.5)");
  program_->execute(
      "insert into SalesPrint select 'x',a.BillNo*100+b.BillNo*10+c.BillNo from Sales a,Sales b,"
      "Sales c order by a.BillNo,b.BillNo,c.BillNo");
  const RowSet rows = program_->execute("select Qty from SalesPrint");
  ASSERT_EQ(rows.rows.size(), 1000u);
  EXPECT_EQ(rows.rows[357][0], Value(357.0));
}

TEST_F(TransactionsTest, ALockedCatalogueIsToldAfterTheTimeOut) {
  ASSERT_EQ(till_.run("BEGIN IMMEDIATE"), SQLITE_OK);
  program_->set_command_timeout(std::chrono::seconds(1));
  EXPECT_EQ(failure_of("delete from Sales"), Kind::busy);
  EXPECT_THAT(message_, HasSubstr("in use"));
  EXPECT_EQ(program_->execute("select count(*) from Sales").rows.size(), 1u);
  ASSERT_EQ(till_.run("ROLLBACK"), SQLITE_OK);
  program_->execute("delete from Sales");
}

TEST_F(TransactionsTest, AStatementThatOutlastsItsTimeEndsAndSoDoesItsTransaction) {
  for (int i = 0; i < 60; ++i)
    program_->execute("insert into Sales values(" + std::to_string(i) + ",null,null,'rice',1)");
  program_->set_command_timeout(std::chrono::seconds(1));
  const std::string lines = "Sales a,Sales b,Sales c,Sales d,Sales e";
  EXPECT_EQ(failure_of("select sum(a.Qty) from " + lines), Kind::busy);

  program_->begin_trans();
  program_->execute("insert into SalesPrint values('before',1)");
  EXPECT_EQ(failure_of("update SalesPrint set Qty=(select sum(a.Qty) from " + lines + ")"),
            Kind::busy);
  // What was to be one whole is not half done: nothing more runs until it is ended.
  EXPECT_TRUE(program_->in_transaction());
  EXPECT_EQ(failure_of("insert into SalesPrint values('after',1)"), Kind::other);
  EXPECT_THROW(program_->commit_trans(), DatabaseError);
  EXPECT_FALSE(program_->in_transaction());
  EXPECT_EQ(count("SalesPrint"), 0);
  program_->execute("insert into SalesPrint values('anew',1)");
}

TEST_F(TransactionsTest, AKeptStatementServesOtherLiterals) {
  for (const char* name : {"rice", "oil", "salt"})
    program_->execute(std::string("insert into SalesPrint values('") + name + "',2.5)");
  const auto top = [&](int rows) {
    return program_->execute("select top " + std::to_string(rows) + " iName from SalesPrint")
        .rows.size();
  };
  EXPECT_EQ(top(1), 1u);
  EXPECT_EQ(top(3), 3u);
  EXPECT_EQ(top(1), 1u);
  const auto with_name = [&](const char* name) {
    return program_->execute(std::string("select Qty from SalesPrint where iName='") + name + "'");
  };
  EXPECT_EQ(with_name("OIL ").rows.size(), 1u);
  EXPECT_EQ(with_name("sugar").rows.size(), 0u);
}

TEST_F(TransactionsTest, AColumnThatAnotherProgramAddsIsSeen) {
  EXPECT_EQ(program_->execute("select * from SalesPrint").fields.size(), 2u);
  ASSERT_EQ(till_.run("ALTER TABLE SalesPrint ADD COLUMN Rate float"), SQLITE_OK);
  EXPECT_EQ(program_->execute("select * from SalesPrint").fields.size(), 3u);
}

}  // namespace
}  // namespace tela::testing
