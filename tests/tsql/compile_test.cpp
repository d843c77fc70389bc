// What a statement becomes: the engine's SQL, the parameters and the result columns.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/tsql/compiler.h"
#include "tsql/memory_schema.h"

namespace tela::tsql {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Compile : public testing::Test {
 protected:
  Compiled compiled(std::string_view sql) const { return compile(sql, schema_); }
  test::MemorySchema schema_ = test::MemorySchema::of_catalogue();
};

TEST_F(Compile, WritesTheEnginesSql) {
  const struct {
    const char* sql;
    const char* sqlite;
  } cases[] = {
      {"select billno from SALESTEMP where billdate>='05/Jan/2024' and Staff='RAVI'",
       R"(SELECT t1."BillNo" FROM main."SalesTemp" AS t1 WHERE ((t1."BillDate" >= ?1) AND (t1."Staff" COLLATE TELA = ?2 COLLATE TELA)))"},
      {"select distinct Catagory from Items order by Catagory desc",
       R"(SELECT t1."c0" FROM tela_groups('SELECT t1."Catagory" FROM main."Items" AS t1', 'k', 0, 0, tela_values()) AS t1 ORDER BY 1 COLLATE TELA DESC)"},
      {"select iCode,sum(Qty)/2 as Half from Sales where Counter=1 group by iCode order by Half",
       R"(SELECT t1."c0", tela_div(t1."c1", ?1) FROM tela_groups('SELECT t1."iCode", t1."Qty" FROM main."Sales" AS t1 WHERE (t1."Counter" = ?1)', 'ks', 0, 0, tela_values(?2)) AS t1 ORDER BY 2, t1."c0")"},
      {"select top 3 month(BillDate),5/2 from Sales S left join Items on S.iCode=Items.iCode",
       R"(SELECT (t1."BillDate" / 100 % 100), tela_int_div(?1, ?2) FROM main."Sales" AS t1 LEFT JOIN main."Items" AS t2 ON (t1."iCode" = t2."iCode") LIMIT 3)"},
      {"select 1 from Sales where Qty-1+(Qty-2)*3-4=0 and Counter=1 and (Qty=1 or Qty=2 or Qty=3)",
       R"(SELECT ?1 FROM main."Sales" AS t1 WHERE (((t1."Qty" - ?2 + ((t1."Qty" - ?3) * ?4) - ?5) = ?6) AND (t1."Counter" = ?7) AND ((t1."Qty" = ?8) OR (t1."Qty" = ?9) OR (t1."Qty" = ?10))))"},
      {"insert into #CostCompare values(1),(-2.5)",
       R"(INSERT INTO temp."#CostCompare" ("SaleRate") VALUES (?1), (?2))"},
      {"insert into HsnGstReport (iHSNcode,Qty) select iName,str(Qty) from Sales",
       R"(INSERT INTO main."HsnGstReport" ("iHSNcode", "Qty") SELECT tela_fit_text(t1."iName", 20, 'HsnGstReport', 'iHSNcode'), tela_to_real(tela_round(t1."Qty", 0)) FROM main."Sales" AS t1)"},
      {"select iCode from Items with (updlock, HOLDLOCK) where stock<0",
       R"(SELECT t1."iCode" FROM main."Items" AS t1 WHERE (t1."Stock" < ?1))"},
      {"update Items set Stock=0 where stock<0",
       R"(UPDATE main."Items" AS t1 SET "Stock" = ?1 WHERE (t1."Stock" < ?2))"},
      {"update Sales set iHSNcode=I.iHSNcode from Sales S join Items I on S.iCode=I.iCode",
       R"(UPDATE main."Sales" AS changed SET "iHSNcode" = source.value1 FROM (SELECT t1.rowid AS target, t2."iHSNcode" AS value1 FROM main."Sales" AS t1 JOIN main."Items" AS t2 ON (t1."iCode" = t2."iCode")) AS source WHERE changed.rowid = source.target)"},
      {"delete Sales from Sales join Items on Sales.iCode=Items.iCode",
       R"(DELETE FROM main."Sales" WHERE rowid IN (SELECT t1.rowid FROM main."Sales" AS t1 JOIN main."Items" AS t2 ON (t1."iCode" = t2."iCode")))"},
      {"create table #A ([my \"col] varchar(max) not null, n numeric(18,0) primary key)",
       R"(CREATE TEMP TABLE "#A" ("my ""col" text NOT NULL, "n" numeric(18,0) PRIMARY KEY))"},
  };
  for (const auto& row : cases) EXPECT_EQ(compiled(row.sql).sqlite_sql, row.sqlite) << row.sql;
}

TEST_F(Compile, LeavesTheGroupsToTheEngineIfAsked) {
  const Compiled result = compile("select distinct Catagory from Items order by Catagory desc",
                                  schema_, Grouping::by_engine);
  EXPECT_EQ(
      result.sqlite_sql,
      R"(SELECT min(t1."Catagory" COLLATE TELA_SPELLING) FROM main."Items" AS t1 GROUP BY t1."Catagory" COLLATE TELA ORDER BY 1 COLLATE TELA DESC)");
}

// The client reads the days in parts where two literals bound them and do nothing else.
TEST_F(Compile, NotesTheDaysOfGroups) {
  const std::string head = "select iCode,sum(Qty) from Sales S where ";
  const auto days = [&](const std::string& condition) {
    std::vector<std::size_t> literals;
    const Compiled result = compiled(head + condition + " group by iCode");
    for (const DayRange& range : result.group_days) {
      literals.push_back(result.parameters.at(range.first).literal);
      literals.push_back(result.parameters.at(range.last).literal);
    }
    return literals;
  };
  EXPECT_THAT(days("BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024'"), ElementsAre(0, 1));
  EXPECT_THAT(days("Counter=1 and (BillDate<='31/Jan/2024' and BillDate>='01/Jan/2024')"),
              ElementsAre(2, 1));
  EXPECT_THAT(days("BillDate between '01/Jan/2024' and '31/Jan/2024'"), ElementsAre(0, 1));
  for (const char* condition : {
           "BillDate='01/Jan/2024'",
           "BillDate>='01/Jan/2024'",
           "BillDate>='01/Jan/2024' or BillDate<='31/Jan/2024'",
           "BillDate not between '01/Jan/2024' and '31/Jan/2024'",
           "BillDate>='01/Jan/2024' and not BillDate<='31/Jan/2024'",
           "Counter>=1 and Counter<=2",
           "BillDate between '01/Jan/2024' and '31/Jan/2024' and "
           "iCode in (select iCode from Items)",
       }) {
    EXPECT_THAT(days(condition), IsEmpty()) << condition;
  }
}

TEST_F(Compile, LeavesTheDaysOfTemporaryTablesWhole) {
  const std::string days = " where BillDate between '01/Jan/2024' and '31/Jan/2024' ";
  EXPECT_THAT(compiled("select S.iCode from Sales S join #CostCompare C on S.Qty=C.SaleRate" +
                       days + "group by S.iCode")
                  .group_days,
              IsEmpty());
  EXPECT_THAT(
      compiled("insert into #CostCompare select sum(Qty) from Sales" + days + "group by iCode")
          .group_days,
      SizeIs(1));
}

TEST_F(Compile, TurnsLiteralsIntoWhatTheyMeet) {
  const Compiled result = compiled(
      "insert into SalesPrint (FromDate,CounterName,BillNo,Total) "
      "values('05/Jan/2024','x',7,2.5)");
  EXPECT_THAT(result.parameters,
              ElementsAre(Parameter{0, {TypeKind::date}, "SalesPrint", "FromDate"},
                          Parameter{1, {TypeKind::text, 100}, "SalesPrint", "CounterName"},
                          Parameter{2, {TypeKind::decimal, 0, 18, 0}, "SalesPrint", "BillNo"},
                          Parameter{3, {TypeKind::real}, "SalesPrint", "Total"}));
  EXPECT_EQ(result.kind, StatementKind::insert);
  EXPECT_EQ(result.target, "SalesPrint");
  EXPECT_FALSE(result.target_is_temporary);
}

TEST_F(Compile, ResultColumnsKeepNamesAndTypes) {
  const Compiled result = compiled(
      "select billno,min(BillDate)'From',sum(Total),count(*),str(1),case when 1=1 then 1 else 2.5 "
      "end,"
      "isnull(max(BillTime),'10:00') as T from SalesTemp group by billno");
  std::vector<std::string> names;
  std::vector<TypeKind> kinds;
  for (const ResultColumn& column : result.columns) {
    names.push_back(column.name);
    kinds.push_back(column.type.kind);
  }
  EXPECT_THAT(names, ElementsAre("billno", "From", "", "", "", "", "T"));
  EXPECT_THAT(kinds,
              ElementsAre(TypeKind::decimal, TypeKind::date, TypeKind::real, TypeKind::integer,
                          TypeKind::text, TypeKind::decimal, TypeKind::time));
}

TEST_F(Compile, PartsAnInsertFromASelect) {
  const Compiled result =
      compiled("Insert into ProfitPercent execute spGetProfitNew '01/Jan/2024','31/Jan/2024'");
  EXPECT_EQ(result.sqlite_sql.substr(result.sqlite_sql.size() - result.source_sql.size()),
            result.source_sql);
  EXPECT_THAT(result.source_sql, testing::StartsWith("SELECT t1.\"c0\""));
  EXPECT_EQ(compiled("insert into #CostCompare select SaleRate from Sales").insert_row_sql,
            "INSERT INTO temp.\"#CostCompare\" (\"SaleRate\") VALUES (?1)");
  EXPECT_THAT(result.parameters, ElementsAre(Parameter{0, {TypeKind::date}, "", ""},
                                             Parameter{1, {TypeKind::date}, "", ""}));
}

TEST_F(Compile, SyntaxErrorsTellWhatWasFoundWhereAndWhatWasExpected) {
  const struct {
    const char* sql;
    const char* message;
  } cases[] = {
      {"", "Incorrect syntax at the end of the statement (position 1): expected a statement."},
      {"selec 1", "Incorrect syntax near 'selec' (position 1): expected a statement."},
      {"select",
       "Incorrect syntax at the end of the statement (position 7): expected an expression."},
      {"select a from", "at the end of the statement (position 14): expected a table."},
      {"select a where b = ", "(position 20): expected an expression."},
      {"select a from T with (fast)", "near 'fast' (position 23): expected a lock hint."},
      {"select (1", "(position 10): expected ')'."},
      {"select 1 from T order date", "near 'date' (position 23): expected 'by'."},
      {"insert into T values(1,,2)", "near ',' (position 24): expected an expression."},
      {"select case when 1=1 then 2", "(position 28): expected 'end'."},
      {"select 1 2", "near '2' (position 10): expected the end of the statement."},
      {"select 'open", "Unclosed quotation mark after the character string 'open'."},
      {"select 1 /* open", "Missing end comment mark '*/'."},
      {"select ?", "Incorrect syntax near '?'."},
      {"select a=1+ from T", "near 'from' (position 13): expected an expression."},
      {"select iCode from Items where mrp",
       "a context where a condition is expected (position 31)."},
      {"select (mrp=1) from Items", "A condition stands where a value is expected (position 9)."},
      {"create table #Q (a color)", "Type color is not a defined system type."},
      {"create table #Q (a int, A int)",
       "Column name 'a' in table '#Q' is specified more than once."},
  };
  for (const auto& row : cases) {
    try {
      compiled(row.sql);
      ADD_FAILURE() << row.sql;
    } catch (const CompileError& error) {
      EXPECT_THAT(error.what(), HasSubstr(row.message)) << row.sql;
    }
  }
}

}  // namespace
}  // namespace tela::tsql
