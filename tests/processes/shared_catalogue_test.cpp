// One catalogue under several processes: tills that bill, reports that read and stage, and programs
// that are killed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <sstream>
#include <thread>

#include "platform/embedded/embedded_catalogue.h"
#include "processes/child_process.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

class SharedCatalogueTest : public ::testing::Test {
 protected:
  SharedCatalogueTest() {
    const std::string_view schema[] = {
        "create table SalesTemp (BillNo numeric(18,0), BillDate date, NetAmount float)\nGO\n"
        "create table Sales (BillNo numeric(18,0), BillDate date, iName varchar(60), Amount "
        "float)\n"
        "GO\ncreate table SalesPrint (BillNo numeric(18,0), Amount float)\nGO\n"
        "create index SalesByBill on Sales (BillNo)\n"};
    create_embedded_catalogue(file_, schema);
  }

  ChildProcess start(std::vector<std::string> words) const {
    words.insert(words.begin(), TELA_WORKER);
    words.insert(words.begin() + 2, file_.string());
    return ChildProcess(std::move(words));
  }

  /// What a process printed as its last word; it must have ended well.
  static int result_of(ChildProcess& process) {
    process.end_input();
    const std::string output = process.output();
    EXPECT_EQ(process.wait(), 0);
    return std::atoi(output.c_str());
  }

  RowSet ask(const std::string& sql) const {
    const auto connection = make_embedded_connection(file_);
    connection->open("Initial Catalog=TelaData");
    return connection->execute(sql);
  }

  std::int64_t number(const std::string& sql) const {
    return std::get<std::int64_t>(ask(sql).rows.at(0).at(0));
  }

  void expect_sound_with(int bills) const {
    EXPECT_EQ(number("select count(*) from SalesTemp"), bills);
    EXPECT_EQ(number("select count(*) from Sales"), bills * 5);
    EXPECT_THAT(EmbeddedCatalogue(file_).integrity_check(), ::testing::IsEmpty());
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "TelaData.db";
};

TEST_F(SharedCatalogueTest, ATillLosesNoBillAndReportsSeeNoHalfOne) {
  ChildProcess till = start({"till", "1", "0", "0"});
  ChildProcess reports[] = {start({"reports", "50"}), start({"reports", "50"})};
  for (ChildProcess& report : reports) EXPECT_EQ(result_of(report), 50);
  const int bills = result_of(till);
  EXPECT_GT(bills, 0);
  expect_sound_with(bills);
}

TEST_F(SharedCatalogueTest, ProcessesThatCommitAndCheckpointAtOnceLoseNothing) {
  constexpr int bills = 300;
  ChildProcess tills[] = {start({"till", "1", std::to_string(bills), "1"}),
                          start({"till", "2", std::to_string(bills), "2"}),
                          start({"till", "3", std::to_string(bills), "3"})};
  ChildProcess report = start({"reports", "0"});
  for (ChildProcess& till : tills) EXPECT_EQ(result_of(till), bills);
  EXPECT_GT(result_of(report), 0);
  expect_sound_with(bills * 3);
}

// Kills fall evenly on the start of the program and on its rounds, however slow the machine is.
TEST_F(SharedCatalogueTest, AKilledProgramLeavesItsLastCommit) {
  using std::chrono::steady_clock;
  const auto started = steady_clock::now();
  {
    const ChildProcess first = start({"stage"});
    first.wait_for_output();
  }
  const auto start_up =
      std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - started).count();
  std::mt19937 random(1);
  int rounds_seen = 0;
  for (int kill = 0; kill < 100; ++kill) {
    ask("delete from SalesPrint");
    ChildProcess staging = start({"stage"});
    std::this_thread::sleep_for(std::chrono::microseconds(random() % (2 * start_up)));
    staging.kill();
    EXPECT_EQ(staging.wait(), -SIGKILL);

    // Rounds that it told of are on the disk; at most one more was committed and not told.
    std::istringstream told(staging.output());
    int last = 0;
    for (int round; told >> round;) last = round;
    const RowSet kept = ask("select BillNo,count(*) from SalesPrint group by BillNo");
    ASSERT_LE(kept.rows.size(), 1u);
    const auto round = kept.rows.empty() ? 0 : std::get<std::int64_t>(kept.rows[0][0]);
    EXPECT_TRUE(round == last || round == last + 1) << round << " after " << last;
    if (round > 0) {
      EXPECT_EQ(kept.rows[0][1], Value(std::int64_t{50}));
    }
    rounds_seen += last;
  }
  EXPECT_GT(rounds_seen, 0);
  EXPECT_THAT(EmbeddedCatalogue(file_).integrity_check(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace tela::testing
