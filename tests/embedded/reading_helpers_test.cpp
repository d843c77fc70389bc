// Several readers of one statement: they share its days out whole, and see what it sees.
#include "platform/embedded/grouping/reading_helpers.h"

#include <gtest/gtest.h>

#include "embedded/shop.h"
#include "platform/embedded/grouping/day_parts.h"
#include "platform/embedded/grouping/group_module.h"
#include "platform/embedded/sql_functions.h"
#include "platform/tsql/values.h"

namespace tela::embedded {
namespace {

using testing::OtherProgram;
using testing::Shop;

TEST(DayParts, HoldEveryNumberOnce) {
  for (const DayPart days : {DayPart{20240101, 20240108}, DayPart{20231225, 20240305},
                             DayPart{20150101, 20241231}, DayPart{19000101, 99991231}}) {
    const auto parts = divide(days);
    ASSERT_GT(parts.size(), 1U);
    EXPECT_EQ(parts.front().first, days.first);
    EXPECT_EQ(parts.back().last, days.last);
    for (std::size_t i = 1; i < parts.size(); ++i) {
      EXPECT_LE(parts[i].first, parts[i].last);
      EXPECT_EQ(parts[i].first, parts[i - 1].last + 1)
          << "numbers that are no days are some part's";
      EXPECT_NO_THROW(tsql::date_add("day", 1, parts[i].first)) << "a day";
    }
  }
  for (const DayPart days :
       {DayPart{20240101, 20240101}, DayPart{20240101, 20240107}, DayPart{20241231, 20240101}}) {
    EXPECT_TRUE(divide(days).empty());
  }
}

class Helpers : public ::testing::Test {
 protected:
  std::size_t count() {
    const HelpersAtWork at_work(helpers, main.handle());
    return at_work.count();
  }

  Shop shop;
  CommandClock clock;
  Database main{shop.file, SQLITE_OPEN_READWRITE};
  ReadingHelpers helpers{shop.file, clock};
};

TEST_F(Helpers, ComeWhereTheySeeWhatTheStatementSees) {
  EXPECT_EQ(count(), 0U) << "nobody has been called";
  helpers.prepare_for_statement();
  EXPECT_GE(count(), 1U);
  EXPECT_GE(count(), 1U) << "free again";

  OtherProgram till(shop.file);
  ASSERT_EQ(till.run("INSERT INTO Sales(iName) VALUES('Soap')"), SQLITE_OK);
  EXPECT_EQ(count(), 0U) << "the statement may have begun before the bill";
  helpers.prepare_for_statement();
  EXPECT_GE(count(), 1U);

  main.run("BEGIN; INSERT INTO Sales(iName) VALUES('Rice')");
  helpers.prepare_for_statement();
  EXPECT_EQ(count(), 0U) << "nobody else sees what is not committed";
  main.run("COMMIT");
  EXPECT_EQ(count(), 0U) << "committed since they were prepared";
}

TEST_F(Helpers, KeepTheirViewWhileTheyWork) {
  helpers.prepare_for_statement();
  const HelpersAtWork at_work(helpers, main.handle());
  ASSERT_GE(at_work.count(), 1U);
  OtherProgram till(shop.file);
  ASSERT_EQ(till.run("INSERT INTO Sales(iName) VALUES('Soap')"), SQLITE_OK);
  const auto count_lines = [](void* lines, int, char** fields, char**) {
    *static_cast<int*>(lines) = std::stoi(fields[0]);
    return 0;
  };
  int lines = -1;
  ASSERT_EQ(sqlite3_exec(at_work.connection(0), "SELECT count(*) FROM Sales", count_lines, &lines,
                         nullptr),
            SQLITE_OK);
  EXPECT_EQ(lines, 0);
  EXPECT_NE(sqlite3_exec(at_work.connection(0), "DELETE FROM Sales", nullptr, nullptr, nullptr),
            SQLITE_OK)
      << "they only read";
}

TEST_F(Helpers, EndInTimeWithTheStatement) {
  helpers.prepare_for_statement();
  const HelpersAtWork at_work(helpers, main.handle());
  clock.start(std::chrono::seconds(-1));
  EXPECT_EQ(sqlite3_exec(at_work.connection(0),
                         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                         "1000000) SELECT max(i) FROM n",
                         nullptr, nullptr, nullptr),
            SQLITE_INTERRUPT);
}

// How often this process has the file open.
int count_handles(const std::filesystem::path& file) {
  int handles = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    handles += std::filesystem::read_symlink(entry.path(), gone) == file ? 1 : 0;
  }
  return handles;
}

TEST_F(Helpers, AreCalledForALongPeriodAlone) {
  const auto connection = shop.connect();
  const int before = count_handles(shop.file);
  const std::string head = "select iName,sum(Qty) from Sales where BillDate>='01/Jan/2024' and ";
  connection->execute(head + "BillDate<='02/Jan/2024' group by iName");
  EXPECT_EQ(count_handles(shop.file), before);
  connection->execute(head + "BillDate<='31/Jan/2024' group by iName");
  EXPECT_GT(count_handles(shop.file), before);
}

// Pages that a connection has asked for since the last look.
int take_reads(sqlite3* connection) {
  int hits = 0;
  int misses = 0;
  int ignored = 0;
  sqlite3_db_status(connection, SQLITE_DBSTATUS_CACHE_HIT, &hits, &ignored, 1);
  sqlite3_db_status(connection, SQLITE_DBSTATUS_CACHE_MISS, &misses, &ignored, 1);
  return hits + misses;
}

TEST_F(Helpers, ReadTheRowsOfManyDaysOnly) {
  register_sql_functions(main.handle());
  register_groups(main.handle(), {.helpers = &helpers});
  helpers.prepare_for_statement();
  sqlite3* helper = HelpersAtWork(helpers, main.handle()).connection(0);
  const auto group = [&](const std::string& days) {
    take_reads(helper);
    main.run(("SELECT * FROM tela_groups('SELECT iName, Qty FROM Sales WHERE BillDate BETWEEN ?1 "
              "AND ?2', 'ks', " +
              days + "))")
                 .c_str());
    return take_reads(helper);
  };
  EXPECT_GT(group("1, 2, tela_values(20240101, 20240131"),
            group("0, 0, tela_values(20240101, 20240131"));
  EXPECT_GT(group("1, 2, tela_values(20240101, 20240131"),
            group("1, 2, tela_values(20240101, 20240102"));
}

}  // namespace
}  // namespace tela::embedded
