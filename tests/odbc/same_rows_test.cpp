// The same statements on one catalogue, read from its file and over a server that serves the file:
// names, types and values must agree cell for cell, whichever adapter fed a report.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "odbc/served_catalogue.h"
#include "platform/embedded/embedded_catalogue.h"
#include "platform/odbc/odbc_connection.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

class SameRows : public ::testing::Test {
 protected:
  SameRows() {
    const std::string_view schema =
        "create table Sales (BillNo numeric(18,0), BillDate date, BillTime time(0), Counter "
        "smallint,"
        " iName varchar(60), SaleRate float, Qty float)\nGO\n";
    create_embedded_catalogue(file_, {&schema, 1});
    served_.emplace(file_);
    connection_ = make_odbc_connection(served_->server().odbc_text());
    connection_->open("Initial Catalog=TelaData");
  }

  void expect_same(const std::string& sql) {
    const RowSet over_server = connection_->execute(sql);
    const RowSet from_file = served_->behind().execute(sql);
    ASSERT_EQ(over_server.fields.size(), from_file.fields.size()) << sql;
    for (std::size_t i = 0; i < from_file.fields.size(); ++i) {
      EXPECT_EQ(over_server.fields[i].name, from_file.fields[i].name) << sql;
      EXPECT_EQ(over_server.fields[i].type, from_file.fields[i].type) << sql;
    }
    EXPECT_EQ(over_server.rows, from_file.rows) << sql;
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "TelaData.db";
  std::optional<ServedCatalogue> served_;
  std::unique_ptr<Connection> connection_;
};

TEST_F(SameRows, WhicheverAdapterReadsThem) {
  connection_->begin_trans();
  connection_->execute(
      "insert into Sales values (1,'05/Jan/2024','09:05:00',2,'Amma''s அரிசி  ',10.1,2.125)");
  connection_->execute("insert into Sales values (2,'05/Jan/2024','23:59:59',1,'rice',0.1,-1)");
  connection_->execute("insert into Sales values (3,'06/Jan/2024',null,null,null,null,null)");
  connection_->commit_trans();

  expect_same("select * from Sales order by BillNo");
  expect_same("select min(BillNo),max(BillDate)'LAST DAY',isnull(min(billno),0) from Sales");
  expect_same("select sum(Qty*SaleRate) 'TOTAL',str(sum(qty),8,3),count(*) from sales");
  expect_same("select sum(qty) from Sales where BillDate='01/Jan/2020'");
  expect_same("select datename(mm,BillDate),Year(BillDate) from Sales group by BillDate");
  expect_same("select iName from Sales where BillDate>='01/Jan/2030'");
}

TEST_F(SameRows, TemporaryTablesAndRolledBackRowsAreThoseOfTheConnection) {
  connection_->execute("Create Table #CostCompare (SaleRate float)");
  connection_->begin_trans();
  connection_->execute("Insert into #CostCompare values(12.5)");
  connection_->commit_trans();
  connection_->begin_trans();
  connection_->execute("Insert into #CostCompare values(13.5)");
  connection_->rollback_trans();
  EXPECT_EQ(connection_->execute("select SaleRate from #CostCompare").rows,
            (std::vector<std::vector<Value>>{{Value(12.5)}}));
}

}  // namespace
}  // namespace tela::testing
