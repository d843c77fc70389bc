// The embedded catalogue: staging beside the sqlite3 shell, and what the journal mode costs a till.
//
//   tela_embedded_bench [FOLDER]   works in a new folder below FOLDER (default: the temporary
//   folder)
#include <sqlite3.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "measure.h"
#include "platform/catalogue_texts/catalogue_texts.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela::bench {
namespace {

namespace fs = std::filesystem;

/// The values of a staging row, the dates written as the engine at hand reads them.
std::string staging_values(int row, const char* day) {
  const std::string number = std::to_string(row);
  return "values(" + std::string(day) + "," + day + ",'COUNTER-2'," + number + "," + day + "," +
         number + ".25,10.5," + number + ".75,100.25,200.5,0,0,12.5)";
}

constexpr int staging_rows = 10'000;

double stage_by_program(const fs::path& file) {
  const auto connection = make_embedded_connection(file);
  connection->open("Initial Catalog=TelaData");
  connection->execute("Delete from SalesPrint");
  std::vector<std::string> statements;
  for (int row = 0; row < staging_rows; ++row)
    statements.push_back("Insert into SalesPrint " + staging_values(row, "'05/Jan/2024'"));
  Times time;
  time.measure([&] {
    connection->begin_trans();
    for (const std::string& statement : statements) connection->execute(statement);
    connection->commit_trans();
  });
  return time.median();
}

double stage_by_shell(const fs::path& file, const fs::path& script) {
  std::ofstream text(script);
  text << "PRAGMA synchronous=FULL;\nBEGIN;\n";
  for (int row = 0; row < staging_rows; ++row)
    text << "INSERT INTO SalesPrint " << staging_values(row, "20240105") << ";\n";
  text << "COMMIT;\n";
  text.close();
  const std::string empty = "sqlite3 " + file.string() + " 'DELETE FROM SalesPrint' > /dev/null";
  const std::string stage = "sqlite3 " + file.string() + " < " + script.string() + " > /dev/null";
  Times time;
  if (std::system(empty.c_str()) != 0) std::exit(1);
  time.measure([&] {
    if (std::system(stage.c_str()) != 0) std::exit(1);
  });
  return time.median();
}

void compare_staging(const fs::path& folder) {
  const fs::path ours = folder / "ours.db";
  const fs::path shells = folder / "shells.db";
  create_embedded_catalogue(ours, catalogue_scripts());
  create_embedded_catalogue(shells, catalogue_scripts());
  std::vector<double> program, shell;
  for (int run = 0; run < 9; ++run) {
    program.push_back(stage_by_program(ours));
    shell.push_back(stage_by_shell(shells, folder / "staging.sql"));
  }
  std::sort(program.begin(), program.end());
  std::sort(shell.begin(), shell.end());
  std::printf("staging %d rows: program %.1f ms, sqlite3 shell %.1f ms, ratio %.2f (at most 3)\n",
              staging_rows, program[4], shell[4], program[4] / shell[4]);
}

/// A connection of a program that knows nothing of this one.
class Engine {
 public:
  Engine(const fs::path& file, const std::string& journal) {
    sqlite3_open(file.c_str(), &handle_);
    // Looks again every millisecond, so that a figure is a wait and not a nap.
    const auto look_again = [](void*, int) {
      sqlite3_sleep(1);
      return 1;
    };
    sqlite3_busy_handler(handle_, look_again, nullptr);
    run("PRAGMA journal_mode=" + journal +
        "; PRAGMA synchronous=FULL; PRAGMA wal_autocheckpoint=0");
  }
  ~Engine() { sqlite3_close(handle_); }
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  void run(const std::string& sql) {
    if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) return;
    std::fprintf(stderr, "%s: %s\n", sql.c_str(), sqlite3_errmsg(handle_));
    std::exit(1);
  }

 private:
  sqlite3* handle_ = nullptr;
};

void write_bill(Engine& till, int number) {
  const std::string bill = std::to_string(number);
  till.run("BEGIN IMMEDIATE; INSERT INTO SalesTemp(BillNo,BillDate,NetAmount) VALUES(" + bill +
           ",20240105,60)");
  for (int line = 0; line < 6; ++line)
    till.run("INSERT INTO Sales(BillNo,BillDate,iCode,iName,Qty,Amount) VALUES(" + bill +
             ",20240105," + std::to_string(line) + ",'an item of the shop',1,10)");
  till.run("COMMIT");
}

/// Runs a report again and again until it is told to stop.
class RunningReport {
 public:
  RunningReport(const fs::path& file, const std::string& journal)
      : thread_([this, file, journal] {
          Engine engine(file, journal);
          while (!stop_)
            engine.run("SELECT iName,sum(Qty),sum(Amount) FROM Sales NOT INDEXED GROUP BY iName");
        }) {}
  ~RunningReport() {
    stop_ = true;
    thread_.join();
  }

 private:
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

void fill_with_lines(EmbeddedCatalogue& catalogue, int lines) {
  const std::vector<std::string> columns = {"BillNo", "iName", "Qty", "Amount"};
  BulkInserter sales = catalogue.inserter("Sales", columns);
  catalogue.connection().begin_trans();
  for (int line = 0; line < lines; ++line) {
    const Value row[] = {std::int64_t{line / 6}, "item " + std::to_string(line % 500), 1.0, 10.0};
    sales.add(row);
  }
  catalogue.connection().commit_trans();
}

void measure_till(const fs::path& folder, const std::string& journal, bool with_report) {
  const fs::path file = folder / ("till_" + journal + (with_report ? "_report.db" : ".db"));
  create_embedded_catalogue(file, catalogue_scripts(), [](EmbeddedCatalogue& catalogue) {
    fill_with_lines(catalogue, 300'000);
  });
  Engine till(file, journal);
  std::unique_ptr<RunningReport> report;
  if (with_report) report = std::make_unique<RunningReport>(file, journal);
  Times times;
  for (int bill = 0; bill < 150; ++bill) times.measure([&] { write_bill(till, 1'000'000 + bill); });
  std::printf("a bill under %-8s %s: median %6.1f ms, 95%% %7.1f ms, longest %7.1f ms\n",
              journal.c_str(), with_report ? "beside a report" : "by itself      ", times.median(),
              times.quantile(0.95), times.quantile(1));
}

/// How long a till waits at the most for a checkpoint: the time for which it holds the write lock.
void measure_checkpoint(const fs::path& folder) {
  const fs::path file = folder / "checkpoint.db";
  create_embedded_catalogue(file, catalogue_scripts());
  Times times;
  for (int run = 0; run < 9; ++run) {
    Engine writer(file, "WAL");
    Engine checkpointer(file, "WAL");
    writer.run(
        "BEGIN IMMEDIATE; INSERT INTO Sales(BillNo, iHSNcode) WITH n(i) AS (SELECT 1 UNION ALL "
        "SELECT i+1 FROM n WHERE i<4000) SELECT i, hex(randomblob(400)) FROM n; COMMIT; "
        "BEGIN IMMEDIATE");
    times.measure([&] { checkpointer.run("PRAGMA wal_checkpoint(PASSIVE)"); });
    writer.run("ROLLBACK");
  }
  std::printf("a checkpoint of a 4 MB log holds the write lock for %.1f ms, at the most %.1f ms\n",
              times.median(), times.quantile(1));
}

}  // namespace
}  // namespace tela::bench

int main(int count, char** words) {
  namespace fs = std::filesystem;
  std::string folder = (count > 1 ? fs::path(words[1]) : fs::temp_directory_path()) / "tela_XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) return 1;
  tela::bench::compare_staging(folder);
  for (const char* journal : {"DELETE", "PERSIST", "WAL"})
    for (const bool with_report : {false, true})
      tela::bench::measure_till(folder, journal, with_report);
  tela::bench::measure_checkpoint(folder);
  fs::remove_all(folder);
}
