// Which statements share a compilation, what their literals are, and how scripts are parted.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/tsql/compiler.h"
#include "tsql/memory_schema.h"

namespace tela::tsql {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(Key, IsSharedByStatementsThatDifferInLiteralsOrBlanks) {
  const struct {
    const char* left;
    const char* right;
    bool is_shared;
  } cases[] = {
      {"select a from T where b='x'", "select a  from\tT where b = 'it''s'", true},
      {"insert into T values(1,'a',2.50)", "insert into T values( -1 ,'b',-17.25)", true},
      {"select a from T -- note", "select a from T /* other */", true},
      {"select a from T", "select A from T", false},  // the result column is named otherwise
      {"select a from T where b=1", "select a from T where b='1'", false},
      {"select a from T where b=1", "select a from T where b=1.0", false},
      {"select a from T where b=1", "select a from T where b=12345678901", false},
      {"select a-1", "select a -1", true},
      {"select (1)-1", "select (1) - -1", true},
      {"select ab", "select a b", false},
      {"select [a b]", "select [a  b]", false},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(normalize(row.left).key == normalize(row.right).key, row.is_shared)
        << row.left << " / " << row.right;
  }
}

TEST(Key, LiteralsStandInTheirOrder) {
  EXPECT_THAT(
      normalize("values(-5, 'it''s', N'', 2147483648, .5, 1e3, a-1)").literals,
      ElementsAre(Literal{LiteralKind::integer, "-5"}, Literal{LiteralKind::text, "it's"},
                  Literal{LiteralKind::text, ""}, Literal{LiteralKind::decimal, "2147483648"},
                  Literal{LiteralKind::decimal, ".5"}, Literal{LiteralKind::real, "1e3"},
                  Literal{LiteralKind::integer, "1"}));
}

TEST(Pinned, AreTheLiteralsThatDecideAboutTheText) {
  const auto schema = test::MemorySchema::of_catalogue();
  const struct {
    const char* sql;
    std::vector<std::size_t> pinned;
  } cases[] = {
      {"select iCode from Items where mrp>5 and iName='x'", {}},
      {"select top 5 iCode from Items where mrp>6", {0}},
      {"select iCode'CODE' from Items order by 1", {0, 1}},
      {"select iCode/100,count(*) from Items group by iCode/100", {0, 1}},
      {"select cast(iCode as varchar(9)) from Items where iCode>5", {0}},
      {"select convert(varchar(9),BillDate,103) from Sales", {0, 1}},
      {"create table #X (a varchar(5), b numeric(9,2))", {0, 1, 2}},
  };
  for (const auto& row : cases) {
    EXPECT_THAT(compile(row.sql, schema).pinned, ElementsAreArray(row.pinned)) << row.sql;
  }
}

TEST(Batch, IsPartedByGoAndSemicolons) {
  EXPECT_THAT(split_batch("select 1\nGO\n  select ';' -- GO\n go \r\n\nGO\nselect 2; select 3;"),
              ElementsAre("select 1", "select ';'", "select 2", "select 3"));
  EXPECT_THAT(split_batch("create procedure P as begin select 1; end\nGO\nselect go from T"),
              ElementsAre("create procedure P as begin select 1; end", "select go from T"));
  EXPECT_THAT(split_batch(" -- nothing\n;;\nGO\n"), testing::IsEmpty());
}

}  // namespace
}  // namespace tela::tsql
