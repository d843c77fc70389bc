// What the T-SQL front end costs a statement: the first time (compile) and again (normalize, which
// gives the key under which the compilation is kept).
#include <benchmark/benchmark.h>

#include <string>

#include "platform/tsql/compiler.h"
#include "tsql/memory_schema.h"

namespace {

using tela::test::MemorySchema;

const std::string staging_insert =
    "Insert into SalesPrint values('05/Jan/2024','05/Jan/2024','ALL COUNTER',123456,'05/Jan/2024',"
    "1165.00,0.00,1165.00,1100.00,0.00,0.00,65.00,0.00)";

const std::string daily_report =
    "select billno,billdate,BillTime,str(netamount,8,2)'NET AMT',str(DiscAmount,8,2)'Discount',"
    "str(Total,8,2),(case when BillType='CASH/CREDIT' or BillType='POINTS SALES' then "
    "Total-(CardPaid+MealsPaid+MobilePay+PointsUsed) else CashPaid end),str(CardPaid,8,2),"
    "str(MealsPaid,8,2),MobilePay,STR(PointsUsed,8,2) from salestemp where billdate='05/Jan/2024' "
    "order by billno";

const std::string category_report =
    "select S.icode,S.iname,S.mrp,S.salerate,sum(S.qty),sum(S.qty) * S.salerate,I.CATAGORY from "
    "sales S Join ITEMS I on S.iCode=I.iCode where S.billdate>='01/Jan/2024' and "
    "S.billdate<='31/Jan/2024' and I.catagory='SOAP' group by "
    "S.icode,S.iname,S.mrp,S.salerate,I.CATAGORY order by sum(Qty) asc";

void compile_statement(benchmark::State& state, const std::string& sql) {
  const MemorySchema schema = MemorySchema::of_catalogue();
  for (auto _ : state) benchmark::DoNotOptimize(tela::tsql::compile(sql, schema));
}

void normalize_statement(benchmark::State& state, const std::string& sql) {
  for (auto _ : state) benchmark::DoNotOptimize(tela::tsql::normalize(sql));
}

BENCHMARK_CAPTURE(compile_statement, staging_insert, staging_insert);
BENCHMARK_CAPTURE(compile_statement, daily_report, daily_report);
BENCHMARK_CAPTURE(compile_statement, category_report, category_report);
BENCHMARK_CAPTURE(normalize_statement, staging_insert, staging_insert);
BENCHMARK_CAPTURE(normalize_statement, daily_report, daily_report);

}  // namespace

BENCHMARK_MAIN();
