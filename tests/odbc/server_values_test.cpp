// What a real driver for SQL Server makes of every type of the catalogue, and what the adapter
// makes of that: the values must be those that the embedded catalogue gives.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "odbc/tds_server.h"
#include "platform/odbc/odbc_connection.h"

namespace tela::testing {
namespace {

using namespace std::chrono_literals;

constexpr Date kFifthOfJanuary = 2024y / 1 / 5;
constexpr int kDaysToFifthOfJanuary = 738889;          // since the first of January of the year 1
constexpr std::int32_t kDaysSince1900 = 45294;         // to the same day
constexpr std::uint32_t kQuarterToTwo = 49'500 * 300;  // 13:45:00 in three hundredths of a second

struct ValueCase {
  const char* name;
  WireColumn column;
  std::vector<std::string> values;
  FieldType type;
  std::vector<Value> expected;
};

std::vector<ValueCase> value_cases() {
  const std::u16string long_name(5000, u'அ');
  std::string long_utf8;
  for (int i = 0; i < 5000; ++i) long_utf8 += "அ";
  return {
      {"smallint",
       wire::integer("c", 2),
       {wire::number(-7, 2)},
       FieldType::whole_number,
       {std::int64_t{-7}}},
      {"bigint",
       wire::integer("c", 8),
       {wire::number(9007199254740993, 8)},
       FieldType::whole_number,
       {std::int64_t{9007199254740993}}},
      {"float",
       wire::floating("c", 8),
       {wire::real(0.1), wire::real(1e-7)},
       FieldType::number,
       {0.1, 1e-7}},
      {"real",
       wire::floating("c", 4),
       {wire::real(1.1F), wire::real(16777217.0F), wire::real(0.12345679F)},
       FieldType::number,
       {1.1, 16777216.0, 0.12345679}},
      {"money",
       wire::money("c", 8),
       {wire::money_value(1234567, 8), wire::money_value(-99999999999999, 8)},
       FieldType::number,
       {123.4567, -9999999999.9999}},
      {"smallmoney",
       wire::money("c", 4),
       {wire::money_value(-12345, 4)},
       FieldType::number,
       {-1.2345}},
      {"decimal",
       wire::decimal("c", 19, 4),
       {wire::decimal_value(1234567890123456789), wire::decimal_value(-5000)},
       FieldType::number,
       {123456789012345.6789, -0.5}},
      {"code",
       wire::decimal("c", 18, 0),
       {wire::decimal_value(123456789012345678)},
       FieldType::whole_number,
       {std::int64_t{123456789012345678}}},
      {"date",
       wire::date("c"),
       {wire::date_value(kDaysToFifthOfJanuary)},
       FieldType::date,
       {kFifthOfJanuary}},
      {"time0",
       wire::time("c", 0),
       {wire::time_value(86399, 3)},
       FieldType::time,
       {TimeOfDay{23, 59, 59}}},
      {"time7",
       wire::time("c", 7),
       {wire::time_value(495005000000, 5)},
       FieldType::time,
       {TimeOfDay{13, 45, 0}}},
      {"datetime_of_days",
       wire::datetime("c"),
       {wire::datetime_value(kDaysSince1900, 0)},
       FieldType::date,
       {kFifthOfJanuary}},
      {"datetime_of_times",
       wire::datetime("c"),
       {wire::datetime_value(0, kQuarterToTwo), wire::datetime_value(0, 0)},
       FieldType::time,
       {TimeOfDay{13, 45, 0}, TimeOfDay{}}},
      {"datetime_of_both",
       wire::datetime("c"),
       {wire::datetime_value(kDaysSince1900, kQuarterToTwo),
        wire::datetime_value(kDaysSince1900, 0)},
       FieldType::text,
       {"2024-01-05 13:45:00", "2024-01-05 00:00:00"}},
      {"text",
       wire::nvarchar("c"),
       {wire::text(u"ஆப்பிள் 1€ 😀  "), wire::text(u"")},
       FieldType::text,
       {"ஆப்பிள் 1€ 😀  ", ""}},
      {"long_text",
       wire::nvarchar_max("c"),
       {wire::long_text(long_name)},
       FieldType::text,
       {long_utf8}},
  };
}

TEST(ServerValues, ArriveWithTheirTypeAndAllTheirDigits) {
  TdsServer server;
  const auto connection = make_odbc_connection(server.odbc_text());
  connection->open("");
  for (const ValueCase& each : value_cases()) {
    SCOPED_TRACE(each.name);
    const bool is_text = each.type == FieldType::text && each.column.type[0] == '\xE7';
    Reply reply;
    reply.columns({each.column});
    for (const std::string& value : each.values) reply.row({value});
    // A null among the values changes neither the column's type nor the other values.
    if (!is_text) reply.row({wire::null()});
    server.on(each.name, reply.done(each.values.size()));

    const RowSet rows = connection->execute(each.name);

    ASSERT_EQ(rows.fields.size(), 1U);
    EXPECT_EQ(rows.fields[0].type, each.type);
    ASSERT_EQ(rows.rows.size(), each.values.size() + (is_text ? 0 : 1));
    for (std::size_t i = 0; i < each.expected.size(); ++i)
      EXPECT_EQ(rows.rows[i][0], each.expected[i]) << "row " << i;
    if (!is_text) {
      EXPECT_TRUE(is_null(rows.rows.back()[0]));
    }
  }
}

TEST(ServerValues, NullTextIsNoEmptyText) {
  TdsServer server;
  server.on("texts", Reply()
                         .columns({wire::nvarchar("a"), wire::nvarchar("b")})
                         .row({wire::null_text(), wire::text(u"")})
                         .done(1));
  const auto connection = make_odbc_connection(server.odbc_text());
  connection->open("");
  const RowSet rows = connection->execute("texts");
  EXPECT_TRUE(is_null(rows.rows.at(0).at(0)));
  EXPECT_EQ(rows.rows.at(0).at(1), Value(std::string()));
}

TEST(ServerResults, StatementGoesUnchangedAsABatchOfItsOwn) {
  TdsServer server;
  const auto connection = make_odbc_connection(server.odbc_text());
  connection->open("");
  const std::vector<std::string> statements = {
      "Create Table #GstTable (Amount float,iIgst float)",
      "select sum(Amount) 'TOTAL {d}' from Sales where iName='Amma''s ? கடை {fn x}' ",
  };
  for (const std::string& sql : statements) connection->execute(sql);
  EXPECT_EQ(server.received(), statements);
}

TEST(ServerResults, CountsBeforeTheRowsAreSkippedAndTheRecordCountIsExact) {
  TdsServer server;
  Reply reply;
  reply.done(3, true).done(1, true).columns({wire::integer("BillNo", 4), wire::nvarchar("")});
  for (int bill = 1; bill <= 1000; ++bill) reply.row({wire::number(bill, 4), wire::text(u"x")});
  server.on("spReport", reply.done(1000, true).columns({wire::integer("second", 4)}).done(0));
  const auto connection = make_odbc_connection(server.odbc_text());
  connection->open("");

  Recordset bills;
  bills.open("spReport", *connection);

  EXPECT_EQ(bills.record_count(), 1000);
  EXPECT_EQ(bills.field_info(0).name, "BillNo");
  EXPECT_EQ(bills.field_info(1).name, "");
  EXPECT_EQ(bills.field(0), Value(std::int64_t{1}));
}

TEST(ServerResults, NoRowsAreNotNoResult) {
  TdsServer server;
  server.on("select", Reply().columns({wire::integer("BillNo", 4)}).done(0));
  const auto connection = make_odbc_connection(server.odbc_text());
  connection->open("");
  EXPECT_EQ(connection->execute("select").fields.size(), 1U);
  EXPECT_TRUE(connection->execute("delete from SalesPrint").fields.empty());
}

}  // namespace
}  // namespace tela::testing
