// What every adapter of the database client must do, whichever engine is behind it. An adapter's
// test program includes this once and names its engine by INSTANTIATE_TEST_SUITE_P. The statements
// are plain enough for any SQL engine.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/database/database_client.h"

namespace tela::testing {

/// A catalogue of an engine under test, empty at first and gone with this object.
class ContractCatalogue {
 public:
  virtual ~ContractCatalogue() = default;
  /// A further connection to the same catalogue, not open yet.
  virtual std::unique_ptr<Connection> connection() = 0;
  virtual std::string connection_string() const { return "Initial Catalog=TelaData"; }
};

struct ContractEngine {
  std::string name;
  std::function<std::unique_ptr<ContractCatalogue>()> make_catalogue;
};

inline void PrintTo(const ContractEngine& engine, std::ostream* out) {
  *out << engine.name;
}

class ConnectionContract : public ::testing::TestWithParam<ContractEngine> {
 protected:
  void SetUp() override {
    first_ = connect();
    first_->execute("create table Goods (Code int, Rate float, Label varchar(20))");
  }

  std::unique_ptr<Connection> connect() {
    auto connection = catalogue_->connection();
    connection->open(catalogue_->connection_string());
    return connection;
  }

  void add(int code) {
    first_->execute("insert into Goods values(" + std::to_string(code) + ",2.5,'rice')");
  }

  /// The codes in the table as a connection of its own sees them.
  std::vector<Value> committed_codes() {
    std::vector<Value> codes;
    for (const auto& row : connect()->execute("select Code from Goods order by Code").rows)
      codes.push_back(row.at(0));
    return codes;
  }

  static Value code(std::int64_t number) { return number; }

  std::unique_ptr<ContractCatalogue> catalogue_ = GetParam().make_catalogue();
  std::unique_ptr<Connection> first_;
};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_P(ConnectionContract, NothingRunsBeforeItIsOpen) {
  const auto closed = catalogue_->connection();
  EXPECT_THROW(closed->execute("select Code from Goods"), DatabaseError);
  EXPECT_THROW(closed->begin_trans(), DatabaseError);
  EXPECT_FALSE(closed->in_transaction());
}

TEST_P(ConnectionContract, GivesRowsWithNamesTypesAndNulls) {
  first_->execute("insert into Goods values(7,2.5,'Amma''s rice')");
  first_->execute("insert into Goods values(8,null,null)");
  const RowSet goods = first_->execute("select Code,Rate,Label as Name from Goods order by Code");
  ASSERT_EQ(goods.fields.size(), 3u);
  EXPECT_EQ(goods.fields[0].name, "Code");
  EXPECT_EQ(goods.fields[0].type, FieldType::whole_number);
  EXPECT_EQ(goods.fields[1].type, FieldType::number);
  EXPECT_EQ(goods.fields[2].name, "Name");
  EXPECT_EQ(goods.fields[2].type, FieldType::text);
  EXPECT_THAT(goods.rows, ElementsAre(ElementsAre(Value(std::int64_t{7}), Value(2.5),
                                                  Value(std::string("Amma's rice"))),
                                      ElementsAre(Value(std::int64_t{8}), Value(), Value())));
}

TEST_P(ConnectionContract, TellsAResultWithoutRowsFromNoResult) {
  EXPECT_EQ(first_->execute("select Code,Rate from Goods").fields.size(), 2u);
  EXPECT_THAT(first_->execute("delete from Goods").fields, IsEmpty());
}

TEST_P(ConnectionContract, RecordsetWalksTheRowsAndCountsThemAtOnce) {
  for (int i = 1; i <= 3; ++i) add(i);
  Recordset rows;
  rows.open("select Code from Goods order by Code", *first_);
  EXPECT_EQ(rows.record_count(), 3);
  std::vector<Value> seen;
  for (; !rows.eof(); rows.move_next()) seen.push_back(rows.field(0));
  EXPECT_THAT(seen, ElementsAre(code(1), code(2), code(3)));
  EXPECT_THROW(rows.move_next(), DatabaseError);
  rows.close();
  EXPECT_THROW(rows.eof(), DatabaseError);
}

TEST_P(ConnectionContract, CommitShowsTheWholeAndRollbackNothing) {
  first_->begin_trans();
  EXPECT_TRUE(first_->in_transaction());
  add(1);
  add(2);
  EXPECT_THAT(committed_codes(), IsEmpty());
  first_->commit_trans();
  EXPECT_FALSE(first_->in_transaction());
  EXPECT_THAT(committed_codes(), ElementsAre(code(1), code(2)));

  first_->begin_trans();
  first_->execute("delete from Goods");
  first_->rollback_trans();
  EXPECT_THAT(committed_codes(), ElementsAre(code(1), code(2)));
}

TEST_P(ConnectionContract, StatementsOutsideATransactionStandAtOnce) {
  add(1);
  EXPECT_THAT(committed_codes(), ElementsAre(code(1)));
}

TEST_P(ConnectionContract, AFailedStatementChangesNothingAndTheRestOfItsTransactionStands) {
  first_->begin_trans();
  add(1);
  EXPECT_THROW(first_->execute("insert into Godos values(2,2.5,'x')"), DatabaseError);
  EXPECT_TRUE(first_->in_transaction());
  add(3);
  first_->commit_trans();
  EXPECT_THAT(committed_codes(), ElementsAre(code(1), code(3)));
}

TEST_P(ConnectionContract, AConnectionThatDiesLeavesTheLastCommit) {
  add(1);
  first_->begin_trans();
  add(2);
  first_.reset();
  EXPECT_THAT(committed_codes(), ElementsAre(code(1)));
}

TEST_P(ConnectionContract, TransactionsDoNotNestAndNoneEndsUnbegun) {
  EXPECT_THROW(first_->commit_trans(), DatabaseError);
  EXPECT_THROW(first_->rollback_trans(), DatabaseError);
  first_->begin_trans();
  EXPECT_THROW(first_->begin_trans(), DatabaseError);
  EXPECT_TRUE(first_->in_transaction());
  first_->rollback_trans();
}

TEST_P(ConnectionContract, AnEmptyTransactionCommits) {
  first_->begin_trans();
  first_->commit_trans();
  EXPECT_FALSE(first_->in_transaction());
}

TEST_P(ConnectionContract, AnErrorNamesWhatIsUnknown) {
  try {
    first_->execute("select Code from Godos");
    FAIL() << "A table that is not there was read.";
  } catch (const DatabaseError& error) {
    EXPECT_THAT(error.what(), ::testing::HasSubstr("Godos"));
  }
  EXPECT_THROW(first_->execute("selekt Code from Goods"), DatabaseError);
  add(1);
  EXPECT_THAT(committed_codes(), ElementsAre(code(1)));
}

}  // namespace tela::testing
