// A statement prints, parses again and gives an equal tree; a damaged one fails cleanly.
#include <gtest/gtest.h>

#include "embedded/statement_script.h"
#include "platform/tsql/parser.h"
#include "tsql/memory_schema.h"
#include "tsql/printer.h"
#include "tsql/tree_dump.h"

namespace tela::tsql {
namespace {

void expect_round_trip(const std::string& sql) {
  SCOPED_TRACE(sql);
  const Parsed parsed = parse(sql);
  const std::string printed = test::print(parsed.statement);
  SCOPED_TRACE(printed);
  EXPECT_EQ(test::dump(parsed.statement), test::dump(parse(printed).statement));
}

TEST(RoundTrip, HoldsForEveryStatementOfTheScripts) {
  for (const char* script : {"rows.txt", "statements.txt", "meaning.txt"}) {
    for (const auto& statement : test::read_script(script)) expect_round_trip(statement.sql);
  }
}

TEST(RoundTrip, KeepsTheGroupingOfOperators) {
  for (const char* sql : {
           "select a-(b-c), (a-b)-c, a*(b+c)/-d, -(-5), - -5, a - -5, 1-1, +a, -(a+b), 7%3%2",
           "select 1 from T where not (a=1 or b=2) and c=3 or not not d<>4",
           "select 1 from T where (a+1) between (b) and c+2 and d not in (1,(2),3)",
           "select case when a=1 then -100 else (-100) end, case a when 1 then 2 end from T",
           "select [a b], [x]]y], \"q\"\"r\", [select], [cast], [1] from [my table] as [order]",
           "select left(a,1), right(a,1), cast(a as varchar(max)), convert(varchar(10),a,103)",
           "select top 3 a from (select b as a from U union all select c from V) D order by 1 desc",
           "select 'it''s', N'x', 1.50, .5, 5., 1e3, 1E-3, 2147483647, 2147483648, null",
           "update T set T.a=1,b=2 from T join U on T.a=U.a, V where T.c is not null",
           "delete T from T left join U on T.a=U.a where U.a is null",
           "create unique index I on T (a, b desc)",
           "create table T (a int not null primary key, b varchar(10) null unique, c numeric(9,2))",
           "create table T (a int, b int, primary key (a, b))",
           "create procedure P @a int, @b varchar(10) as begin select @a where @b='x'; end",
           "drop procedure P",
           "select -- behind the line\n /* and\n inside */ a from T where exists (select 1);",
       }) {
    expect_round_trip(sql);
  }
}

// Cut at every byte, and with every byte gone, a statement parses or is refused; no other outcome.
TEST(DamagedStatements, FailCleanly) {
  const auto schema = test::MemorySchema::of_catalogue();
  const auto attempt = [&](const std::string& sql) {
    try {
      normalize(sql);
      compile(sql, schema);
    } catch (const CompileError& error) {
      EXPECT_LE(error.position(), sql.size()) << sql;
    }
  };
  std::size_t seen = 0;
  for (const auto& statement : test::read_script("statements.txt")) {
    if (++seen % 16 != 0) continue;
    for (std::size_t i = 0; i < statement.sql.size(); ++i) {
      attempt(statement.sql.substr(0, i));
      attempt(statement.sql.substr(0, i) + statement.sql.substr(i + 1));
    }
  }
}

TEST(Nesting, IsBounded) {
  const auto repeated = [](const std::string& part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
  };
  for (const std::string& sql : {
           "select " + repeated("(", 100000) + "1",
           "select " + repeated("- ", 100000) + "1",
           "select 1" + repeated("+1", 100000),
           "select 1 where " + repeated("not ", 100000) + "1=1",
           "select " + repeated("case when 1=1 then ", 100000) + "1",
           "select " + repeated("(select ", 100000) + "1",
           "select * from " + repeated("(select * from ", 100000) + "T",
           "select 1" + repeated(" union select 1", 100000),
       }) {
    EXPECT_THROW(parse(sql), CompileError) << sql.substr(0, 40);
  }
}

}  // namespace
}  // namespace tela::tsql
