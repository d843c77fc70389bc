// The same statements on one catalogue, read from its file and over a server that serves the file:
// names, types and values must agree cell for cell, whichever adapter fed a report.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "odbc/tds_server.h"
#include "platform/embedded/embedded_catalogue.h"
#include "platform/odbc/odbc_connection.h"
#include "platform/odbc/wide_text.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

WireColumn wire_column(const Field& field) {
  switch (field.type) {
    case FieldType::number:
      return wire::floating(field.name, 8);
    case FieldType::whole_number:
      return wire::decimal(field.name, 18, 0);
    case FieldType::date:
      return wire::date(field.name);
    case FieldType::time:
      return wire::time(field.name, 0);
    case FieldType::text:
      break;
  }
  return wire::nvarchar(field.name);
}

struct WireValue {
  FieldType type;

  std::string operator()(std::monostate /*null*/) const {
    return type == FieldType::text ? wire::null_text() : wire::null();
  }
  std::string operator()(const std::string& text) const { return wire::text(odbc::to_utf16(text)); }
  std::string operator()(double number) const { return wire::real(number); }
  std::string operator()(std::int64_t number) const {
    return type == FieldType::number ? wire::real(static_cast<double>(number))
                                     : wire::decimal_value(number);
  }
  std::string operator()(const Date& date) const {
    using namespace std::chrono;
    return wire::date_value(
        static_cast<int>((sys_days(date) - sys_days(year(1) / January / 1)).count()));
  }
  std::string operator()(const TimeOfDay& time) const {
    return wire::time_value(
        static_cast<std::uint64_t>(time.hour * 3600 + time.minute * 60 + time.second), 3);
  }
};

Reply wire_reply(const RowSet& rows) {
  Reply reply;
  if (rows.fields.empty()) return reply.done(0);
  std::vector<WireColumn> columns;
  for (const Field& field : rows.fields) columns.push_back(wire_column(field));
  reply.columns(columns);
  for (const auto& row : rows.rows) {
    std::vector<std::string> values;
    for (std::size_t i = 0; i < row.size(); ++i)
      values.push_back(std::visit(WireValue{rows.fields[i].type}, row[i]));
    reply.row(values);
  }
  return reply.done(rows.rows.size());
}

class SameRows : public ::testing::Test {
 protected:
  SameRows() {
    const std::string_view schema =
        "create table Sales (BillNo numeric(18,0), BillDate date, BillTime time(0), Counter "
        "smallint,"
        " iName varchar(60), SaleRate float, Qty float)\nGO\n";
    create_embedded_catalogue(file_, {&schema, 1});
    behind_ = make_embedded_connection(file_);
    behind_->open("Initial Catalog=TelaData");
    server_.serve_from([this](const std::string& sql) { return answer(sql); },
                       [this](const std::string& change) { follow(change); });
    connection_->open("Initial Catalog=TelaData");
  }

  Reply answer(const std::string& sql) {
    try {
      return wire_reply(behind_->execute(sql));
    } catch (const DatabaseError& error) {
      return Reply().error(50000, odbc::to_utf16(error.what()));
    }
  }

  void follow(const std::string& change) {
    if (change == "begin") behind_->begin_trans();
    if (change == "commit") behind_->commit_trans();
    if (change == "roll back" && behind_->in_transaction()) behind_->rollback_trans();
  }

  void expect_same(const std::string& sql) {
    const RowSet over_server = connection_->execute(sql);
    const RowSet from_file = behind_->execute(sql);
    ASSERT_EQ(over_server.fields.size(), from_file.fields.size()) << sql;
    for (std::size_t i = 0; i < from_file.fields.size(); ++i) {
      EXPECT_EQ(over_server.fields[i].name, from_file.fields[i].name) << sql;
      EXPECT_EQ(over_server.fields[i].type, from_file.fields[i].type) << sql;
    }
    EXPECT_EQ(over_server.rows, from_file.rows) << sql;
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "TelaData.db";
  std::unique_ptr<Connection> behind_;
  TdsServer server_;
  std::unique_ptr<Connection> connection_ = make_odbc_connection(server_.odbc_text());
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
