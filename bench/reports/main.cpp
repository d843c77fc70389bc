// What the item report, the daily bill report and the stock report take on a large catalogue,
// beside the same rows asked of the sqlite3 shell on the same file and of PostgreSQL.
//
//   reports_bench CATALOGUE.db [SMALL.db] [PSQL-COMMAND]
//
// CATALOGUE holds ten years that end on 31/12/2024, SMALL (may be "") the last months of such a
// shop; PSQL-COMMAND starts a psql on a copy of the large one's tables (load_postgres.sh prints
// it). Every time is the best of several runs in a running process, rows read to the last.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <limits>
#include <memory>
#include <string_view>

#include "platform/embedded/embedded_catalogue.h"
#include "sql_shell.h"
#include "support/recorded_statements.h"

namespace tela::bench {
namespace {

struct Question {
  const char* name;
  std::string program;  ///< as the screen writes it
  std::string sqlite;   ///< by hand, in the engine's stored form of dates
  std::string postgres;
  int runs;
  double most_of_shell;
  double most_of_postgres;  ///< 0 where nothing is asked
};

using testing::screen_statement;

/// Console commands that list a period on a screen for all counters.
std::string listing(const std::string& screen, const std::string& first, const std::string& last) {
  return "open " + screen + "\nset DTP1 " + first + "\nset DTP2 " + last +
         "\npick Combo1 ALL COUNTER\npress cmdView";
}

std::string between(const std::string& first, const std::string& last) {
  return "BillDate >= " + first + " AND BillDate <= " + last;
}

std::string items_by_hand(const std::string& where) {
  return "SELECT iCode, iName, mrp, SaleRate, sum(Qty), sum(Qty) * SaleRate FROM Sales WHERE " +
         where + " GROUP BY iCode, iName, mrp, SaleRate ORDER BY iName;";
}

/// The item report as texts, as its screen asks for it; PostgreSQL is asked for the plain numbers.
std::string items_by_hand_as_text(const std::string& where) {
  return "SELECT iCode, iName, printf('%8.2f', mrp), printf('%8.2f', SaleRate), "
         "printf('%8.3f', sum(Qty)), printf('%8.2f', sum(Qty) * SaleRate) FROM Sales WHERE " +
         where + " GROUP BY iCode, iName, mrp, SaleRate ORDER BY iName;";
}

std::string bills_by_hand(const std::string& where) {
  return "SELECT BillNo, BillDate, BillTime, printf('%8.2f', NetAmount), "
         "printf('%8.2f', DiscAmount), printf('%8.2f', Total), CASE WHEN BillType IN "
         "('CASH/CREDIT', 'POINTS SALES') THEN Total - (CardPaid + MealsPaid + MobilePay + "
         "PointsUsed) ELSE CashPaid END, printf('%8.2f', CardPaid), printf('%8.2f', MealsPaid), "
         "MobilePay, printf('%8.2f', PointsUsed) FROM SalesTemp WHERE " +
         where + " ORDER BY BillDate, BillNo;";
}

Question items_of_a_month() {
  return {"items of a month",
          screen_statement(listing("frmItemSalesReport", "01/12/2024", "31/12/2024"), "select i"),
          items_by_hand_as_text(between("20241201", "20241231")),
          items_by_hand(between("'2024-12-01'", "'2024-12-31'")),
          15,
          1.0,
          1.0};
}

// The select by which the screen fills its table.
std::string stock_of_program() {
  const std::string head = "Insert Into StkAsOnDate ";
  const std::string filling = screen_statement(
      "open frmStockReport\nset DTP1 01/12/2024\nset DTP2 31/12/2024\npress cmdView", head);
  return filling.substr(head.size());
}

// Each table is read once, in the order of an index that holds all that is read.
std::string stock_by_hand() {
  const auto sums = [](const std::string& name, const std::string& table, const std::string& day,
                       const std::string& before, const std::string& within) {
    return name + " AS MATERIALIZED (SELECT iCode, sum(CASE WHEN " + day + " < 20241201 THEN " +
           before + " END) AS b, sum(CASE WHEN " + day + " >= 20241201 THEN " + within +
           " END) AS w FROM " + table + " WHERE " + day + " <= 20241231 GROUP BY iCode)";
  };
  return "WITH " + sums("s", "Sales INDEXED BY Sales_iCode", "BillDate", "Qty", "Qty") + ", " +
         sums("p", "Purchase INDEXED BY Purchase_iCode", "BillDate", "Qty + FQty", "Qty") + ", " +
         sums("a", "StockAdjust INDEXED BY StockAdjust_iCode", "AdjustDate", "AdjustQty",
              "AdjustQty") +
         " SELECT i.iCode, i.iName, i.OpStock, ifnull(s.b, 0), ifnull(p.b, 0), ifnull(a.b, 0), "
         "ifnull(s.w, 0), ifnull(p.w, 0), ifnull(a.w, 0), 0 FROM Items i "
         "LEFT JOIN s ON s.iCode = i.iCode LEFT JOIN p ON p.iCode = i.iCode "
         "LEFT JOIN a ON a.iCode = i.iCode WHERE i.CreatedDate < 20241231 ORDER BY i.iCode;";
}

/// The screen's own text, but for the word that PostgreSQL has for `isnull`.
std::string stock_for_postgres() {
  std::string text = stock_of_program();
  static constexpr std::string_view theirs = "isnull";
  for (auto at = text.find(theirs); at != std::string::npos; at = text.find(theirs, at))
    text.replace(at, theirs.size(), "coalesce");
  return text + ";";
}

std::vector<Question> questions() {
  return {
      {"items of a day",
       screen_statement("open frmdailyIwiseSR\nset DTP 16/12/2024\npick Combo1 ALL COUNTER\n"
                        "press cmdView",
                        "select i"),
       items_by_hand("BillDate = 20241216"), items_by_hand("BillDate = '2024-12-16'"), 50, 1.3,
       1.0},
      items_of_a_month(),
      {"items of ten years",
       screen_statement(listing("frmItemSalesReport", "01/01/2014", "31/12/2024"), "select i"),
       items_by_hand_as_text(between("20140101", "20241231")),
       items_by_hand(between("'2014-01-01'", "'2024-12-31'")), 3, 1.0 / 8, 1.2},
      {"bills of a day",
       screen_statement("open frmDailyS_R\nset DTPicker1 16/12/2024\npick Combo1 ALL COUNTER\n"
                        "press cmdView",
                        "select billno"),
       bills_by_hand("BillDate = 20241216"), "", 50, 1.3, 0},
      {"bills of a month",
       screen_statement(listing("frmmonthlySR", "01/12/2024", "31/12/2024"), "select billno"),
       bills_by_hand(between("20241201", "20241231")), "", 15, 1.3, 0},
      {"stock of ten years", stock_of_program(), stock_by_hand(), stock_for_postgres(), 3, 1.3,
       1.0},
  };
}

/// Seconds, the best of `runs`; fewer where they take long.
double best_of(int runs, const std::function<void()>& action) {
  constexpr double enough = 20;
  double best = std::numeric_limits<double>::infinity();
  double total = 0;
  for (int run = 0; run < runs && total < enough; ++run) {
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    best = std::min(best, took.count());
    total += took.count();
  }
  return best;
}

std::unique_ptr<Connection> connect(const std::string& file) {
  auto connection = make_embedded_connection(file);
  connection->open("Initial Catalog=TelaData");
  connection->set_command_timeout(std::chrono::seconds(600));
  return connection;
}

void print(const char* name, const char* peer, double ours, double theirs, double most) {
  const double ratio = ours / theirs;
  std::printf("%-20s %-12s %12.2f ms %12.2f ms   %6.3f   at most %.3f %s\n", name, peer,
              ours * 1000, theirs * 1000, ratio, most, ratio <= most ? "" : "  MISSED");
}

long peak_megabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

void compare(const std::string& file, const std::string& psql) {
  const auto program = connect(file);
  SqlShell sqlite("sqlite3 '" + file + "'");
  const auto postgres = psql.empty() ? nullptr : std::make_unique<SqlShell>(psql);
  for (const Question& question : questions()) {
    std::size_t rows = 0;
    const double ours =
        best_of(question.runs, [&] { rows = program->execute(question.program).rows.size(); });
    std::size_t other_rows = 0;
    const double shells = best_of(question.runs, [&] { other_rows = sqlite.run(question.sqlite); });
    print(question.name, "sqlite3", ours, shells, question.most_of_shell);
    if (other_rows != rows) std::printf("  %zu rows, there %zu\n", rows, other_rows);
    if (postgres == nullptr || question.postgres.empty()) continue;
    const double peers =
        best_of(question.runs, [&] { other_rows = postgres->run(question.postgres); });
    print(question.name, "PostgreSQL", ours, peers, question.most_of_postgres);
    if (other_rows != rows) std::printf("  %zu rows, there %zu\n", rows, other_rows);
  }
  std::printf("peak memory: %ld MB (at most 300)\n", peak_megabytes());
}

void compare_sizes(const std::string& large, const std::string& small) {
  constexpr int runs = 15;
  const std::string month = items_of_a_month().program;
  const auto time = [&](const std::string& file) {
    const auto connection = connect(file);
    return best_of(runs, [&] { connection->execute(month); });
  };
  print("items of a month", "small file", time(large), time(small), 1.3);
}

}  // namespace
}  // namespace tela::bench

int main(int count, char** words) {
  if (count < 2) {
    std::fputs("usage: reports_bench CATALOGUE.db [SMALL.db] [PSQL-COMMAND]\n", stderr);
    return 2;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  const std::string small = count > 2 ? words[2] : "";
  tela::bench::compare(words[1], count > 3 ? words[3] : "");
  if (!small.empty()) tela::bench::compare_sizes(words[1], small);
}
