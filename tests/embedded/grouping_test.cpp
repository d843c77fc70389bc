// Groups that the client makes by hashing are the groups that the engine makes by sorting: the same
// rows in the same order, to the last digit, over catalogues of random rows.
#include <gtest/gtest.h>

#include <set>

#include "embedded/random_shop.h"
#include "embedded/statement_script.h"
#include "platform/catalogue_texts/catalogue_texts.h"

namespace tela {
namespace {

using test::RandomShop;
using tsql::Grouping;

// Hashed by one reader and by several, hashed until the groups are too many, and sorted.
void expect_same_rows(RandomShop& shop, const std::string& sql) {
  const auto sorted = shop.rows(sql, Grouping::by_engine);
  for (const std::size_t most_groups : {100'000, 2}) {
    shop.keep_in_memory(most_groups);
    EXPECT_EQ(shop.rows(sql, Grouping::by_client), sorted) << most_groups << " groups in memory";
  }
  shop.read_in_parts();
  EXPECT_EQ(shop.rows(sql, Grouping::by_client), sorted) << "read in parts";
}

bool is_hashed(std::string_view sql, const RandomShop& shop) {
  return tsql::compile(sql, shop.schema()).sqlite_sql.find("tela_groups") != std::string::npos;
}

struct Shape {
  std::string sql;
  bool is_hashed = true;  ///< whether the client makes the groups
};

const std::string many_literals = [] {
  std::string sql = "select iName, sum(Qty) from Sales where BillNo in (0";
  for (int i = 1; i < 400; ++i) sql += "," + std::to_string(i);
  sql += ") and iName in ('soap','rice') group by iName";
  return sql;
}();

// A value of the sales of some days, for each item.
std::string asked_of_sales(const std::string& value, const std::string& lookup,
                           const std::string& items = "") {
  return "select (select " + value + " from Sales S where S.BillDate<'01/Feb/2024' and " + lookup +
         ") from Items " + items;
}

const Shape shapes[] = {
    // Keys: equal spellings, nulls, several, expressions, without any aggregate.
    {"select iName, count(*) from Sales group by iName"},
    {"select iName, BillDate, Counter, Rate from Sales group by iName, BillDate, Counter, Rate"},
    {"select upper(iName) + '!', sum(Qty) from Sales group by iName order by iName desc"},
    {"select BillNo * 2 + 1, sum(Qty) from Sales group by BillNo * 2"},
    {"select datename(mm, BillDate), month(BillDate), sum(Rate) from Sales "
     "group by datename(mm, BillDate), month(BillDate)"},
    {"select distinct iName 'NAME' from Sales order by iName"},
    {"select distinct Counter + 1, Counter + 2 from Sales"},
    // Aggregates.
    {"select Counter, sum(Qty), avg(Qty), min(Qty), max(Qty), count(Qty) from Sales "
     "group by Counter"},
    {"select Counter, sum(BillNo), avg(BillNo), avg(Counter + 1), min(iName), max(iName), "
     "min(BillDate) from Sales group by Counter"},
    {"select iName, sum(Qty * Rate) - sum(Qty) * 2, sum(Qty * 2), sum(Qty * 3) from Sales "
     "group by iName"},
    {"select Rate, sum(Qty) * Rate, case when Rate = 0 then sum(Qty) else 0 end from Sales "
     "group by Rate order by sum(Qty) desc"},
    // What is done with the groups.
    {"select top 3 iName, sum(Qty) from Sales where BillDate >= '05/Jan/2024' group by iName "
     "order by sum(Qty) desc"},
    {"select iName, sum(Qty) as Total from Sales group by iName having count(*) > 20 "
     "order by Total"},
    {"select distinct sum(Counter) from Sales group by iName"},
    {"insert into Items select BillNo, BillDate, 1, iName, sum(Qty), 0 from Sales "
     "group by BillNo, BillDate, iName order by BillDate"},
    // Where the rows come from.
    {"select S.iName, I.Rate, sum(S.Qty) from Sales S join Items I on S.iName = I.iName "
     "where I.Counter = 2 and S.Counter in (1, 2) group by S.iName, I.Rate"},
    {"select I.iName, count(S.Qty) from Items I left join Sales S on S.Rate = I.Rate "
     "group by I.iName"},
    {"select Total, count(*) from (select iName, sum(Counter) as Total from Sales group by iName) "
     "T "
     "group by Total"},
    {"select iName from Items where BillNo in (select BillNo from Sales group by BillNo "
     "having sum(Qty) > 1) and Counter = 1"},
    {"select iName, sum(Qty) from Sales group by iName union all "
     "select iName, sum(Qty) from Items group by iName"},
    {"select iName, (select max(Rate) from Items), sum(Qty) from Sales group by iName"},
    // Days that may be read in parts.
    {"select iName, Rate, count(*), count(Qty), sum(Qty), avg(Qty), min(Qty), max(Qty), "
     "min(iName), max(iName), sum(Counter), avg(Counter), min(BillDate), max(BillDate) from Sales "
     "where BillDate >= '01/Jan/2024' and BillDate <= '31/Jan/2024' group by iName, Rate"},
    {"select iName, count(*), sum(Qty) from Sales where BillDate between '25/Jan/2024' and "
     "'10/Mar/2024' group by iName"},
    {"select S.iName, I.Rate, sum(S.Qty) from Sales S left join Items I on S.iName = I.iName "
     "where S.BillDate between '05/Jan/2024' and '14/Jan/2024' and S.Counter in (1, 2) "
     "group by S.iName, I.Rate"},
    {"select iName, sum(1 / Qty) from Sales where BillDate between '01/Jan/2024' and "
     "'31/Jan/2024' group by iName"},
    // Rows, keys and results that fail.
    {"select iName, sum(1 / Qty) from Sales group by iName"},
    {"select 1 / Counter from Sales group by 1 / Counter"},
    {"select iName, 1 / (min(Counter)) from Sales group by iName"},
    // What is asked of other rows for each row.
    {"select iName, Rate, (select isnull(sum(S.Qty),0) from Sales S where S.iName=Items.iName and "
     "S.BillDate<'01/Feb/2024'), (select count(*) from Sales S where Items.Counter=S.Counter and "
     "S.BillDate between '05/Jan/2024' and '31/Jan/2024'), 0 from Items where Rate>=0.1 "
     "order by BillNo"},
    {"select isnull((select sum(S.Qty+S.Rate)*Items.Rate from Sales S where S.Rate=Items.Qty and "
     "S.BillDate>='01/Jan/2024' and (S.Counter in (1,2) or S.iName like 's%')),-1) from Items"},
    {"select (select avg(Rate) from Sales where I.BillNo=Sales.BillNo and BillDate<='01/Mar/2024'),"
     "(select count(Qty)+1 from Sales where I.BillNo=Sales.BillNo and BillDate<='01/Jan/2020'),"
     "(select max(iName) from Sales where I.BillNo=Sales.BillNo and BillDate<>'31/Jan/2024'),"
     "(select min(BillDate) from Sales where I.BillDate=Sales.BillDate and "
     "BillDate>'05/Jan/2024') from Items I left join Items J on I.Counter=J.Rate"},
    {"insert into Items select BillNo,BillDate,Counter,iName,(select isnull(sum(S.Qty),0) from "
     "Sales "
     "S left join Items I on S.Rate=I.Rate where S.iName=Items.iName and S.BillDate<'01/Feb/2024'),"
     "0 from Items where BillDate<'31/Jan/2024' order by BillNo"},
    {"select iName, T.Q from (select iName, (select sum(Qty) from Sales where Sales.iName="
     "Items.iName and BillDate<='31/Jan/2024') as Q from Items) T where T.Q>0"},
    // More literals than a function of the engine takes.
    {"select distinct BillNo from Sales where BillNo in (1,2,3,4,5,6,7,8,9,10,11,12,13,14,15) and "
     "iName <> 'none' and Qty <> 0.3"},
    {many_literals},
    // What stays with the engine.
    {"select sum(Qty), min(iName), count(*) from Sales", false},
    {"select iName, sum(distinct Counter) from Sales group by iName", false},
    {"select iName, (select count(*) from Items I where I.iName = S.iName) from Sales S "
     "group by S.iName",
     false},
    // What is asked for a few rows, or may fail for keys that nobody asks for.
    {asked_of_sales("sum(Qty)", "S.iName=Items.iName", "where BillNo=2 and Rate>0"), false},
    {asked_of_sales("sum(Qty)", "S.iName=Items.iName", "where iName in ('soap')"), false},
    {asked_of_sales("sum(Counter)", "S.iName=Items.iName"), false},
    {asked_of_sales("sum(distinct Qty)", "S.iName=Items.iName"), false},
    {asked_of_sales("sum(1/Qty)", "S.iName=Items.iName and Qty<>0"), false},
    {asked_of_sales("sum(Qty)", "S.iName=Items.iName and S.Counter=Items.Counter"), false},
    {asked_of_sales("sum(Qty)", "S.iName<>Items.iName"), false},
    {asked_of_sales("sum(Qty)", "S.iName=upper(Items.iName)"), false},
    {asked_of_sales("sum(Qty*Items.Rate)", "S.iName=Items.iName"), false},
    {"select (select sum(Qty) from Sales S where S.iName=Items.iName) from Items", false},
    {"select top 2 (select sum(Qty) from Sales S where S.iName=Items.iName and "
     "S.BillDate<'01/Feb/2024') from Items order by BillNo",
     false},
};

void PrintTo(const Shape& shape, std::ostream* out) {
  *out << shape.sql;
}

class GroupingShapes : public ::testing::TestWithParam<Shape> {};

TEST_P(GroupingShapes, GiveTheSameRowsHashedAndSorted) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    RandomShop shop(seed, 200);
    for (const std::string table : {"Sales", "Items"}) {
      shop.define("create table " + table +
                  " (BillNo numeric(18,0), BillDate date, Counter int, iName varchar(60), "
                  "Qty float, Rate float)");
    }
    const std::string& sql = GetParam().sql;
    EXPECT_EQ(is_hashed(sql, shop), GetParam().is_hashed);
    expect_same_rows(shop, sql);
    EXPECT_FALSE(shop.rows(sql, Grouping::by_client).empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Random, GroupingShapes, ::testing::ValuesIn(shapes));

// What the screens ask for, over random rows in every table.
TEST(GroupingStatements, GiveTheSameRowsHashedAndSorted) {
  constexpr int least_grouped = 70;
  constexpr int least_in_parts = 30;
  for (const unsigned seed : {1U, 2U, 3U}) {
    RandomShop shop(seed, 40);
    for (const std::string_view script : catalogue_scripts()) shop.define(script);
    int grouped = 0;
    int in_parts = 0;
    std::set<std::string> created;
    for (const auto& statement : test::read_script("statements.txt")) {
      SCOPED_TRACE(statement.sql);
      if (statement.sql.starts_with("Create")) {
        if (created.insert(statement.sql).second) shop.define(statement.sql);
        continue;
      }
      if (!is_hashed(statement.sql, shop)) continue;
      ++grouped;
      in_parts += tsql::compile(statement.sql, shop.schema()).group_days.empty() ? 0 : 1;
      expect_same_rows(shop, statement.sql);
    }
    EXPECT_GE(grouped, least_grouped);
    EXPECT_GE(in_parts, least_in_parts);
  }
}

TEST(AskedSums, AreLookedUpWhereAnIndexLeadsToThem) {
  RandomShop shop(1, 200);
  shop.define(
      "create table Sales (BillDate date, Counter int, iName varchar(60), Qty float);"
      "create table Items (Counter int, iName varchar(60))");
  shop.add_index("create index Sales_Counter on Sales (Counter, BillDate)");
  shop.add_index("create index Sales_iName on Sales (iName)");
  const std::string by_number = asked_of_sales("sum(Qty)", "S.Counter=Items.Counter");
  const std::string by_text = asked_of_sales("sum(Qty)", "S.iName=Items.iName");
  EXPECT_FALSE(is_hashed(by_number, shop));
  EXPECT_TRUE(is_hashed(by_text, shop)) << "the index knows other texts";
  expect_same_rows(shop, by_text);
}

TEST(ManyGroups, GrowWhileRowsAreAdded) {
  embedded::Database database(":memory:", SQLITE_OPEN_READWRITE);
  register_sql_functions(database.handle());
  EXPECT_EQ(database.text("SELECT count(*) || ' ' || sum(c1) || ' ' || max(c1) FROM tela_groups("
                          "'WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE "
                          "i < 9999) SELECT i % 5000, i FROM n', 'ks', 0, 0, tela_values())"),
            "5000 49995000 14998");
}

}  // namespace
}  // namespace tela
