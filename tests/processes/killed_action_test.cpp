// An action that is killed: whenever that happens, the rows are as they were, or they are gone with
// their way back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <random>
#include <sstream>
#include <thread>

#include "apps/tela_catalogue/commands/kept_commands.h"
#include "platform/embedded/embedded_catalogue.h"
#include "processes/child_process.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

class KilledAction : public ::testing::Test {
 protected:
  KilledAction() {
    create_catalogue(paths_);
    connect();
    for (int bill = 1; bill <= 40; ++bill) {
      std::string lines;
      for (int line = 1; line <= 100; ++line)
        lines += (line > 1 ? ",(" : "(") + std::to_string(bill) + ",'2024-01-05'," +
                 std::to_string(line % 7) + ",'rice',1.5)";
      con_->execute("insert into SalesTemp (BillNo,NetAmount) values (" + std::to_string(bill) +
                    ",9)");
      con_->execute("insert into Sales (BillNo,BillDate,iCode,iName,Amount) values " + lines);
    }
    con_->execute("update bill_no set billno=40");
    std::ofstream(script_) << "answer ok\nopen StartDeleteBills\n";
  }

  void connect() {
    con_ = make_embedded_connection(paths_.embedded_catalogue("TelaData"));
    con_->open({});
  }

  ChildProcess start() const {
    return ChildProcess({TELA_CONSOLE, "--root", folder_.path().string(), script_.string()});
  }

  /// How long the action takes from its first word on.
  std::chrono::microseconds duration() const {
    ChildProcess console = start();
    console.wait_for_output();
    const auto begun = steady_clock::now();
    EXPECT_EQ(console.wait(), 0);
    return std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - begun);
  }

  std::vector<std::vector<std::vector<Value>>> bills() {
    return {con_->execute("select * from SalesTemp").rows,
            con_->execute("select * from Sales").rows, con_->execute("select * from bill_no").rows};
  }

  /// The names of the kept actions; what is not whole is none.
  std::vector<std::string> kept() const {
    std::ostringstream list;
    list_kept(paths_.way_back(), list);
    std::vector<std::string> names;
    std::istringstream lines(list.str());
    for (std::string line; std::getline(lines, line);)
      if (!line.starts_with(' ')) names.push_back(line);
    return names;
  }

  void restore_all() {
    std::ostringstream said;
    Messages messages(said, false);
    for (const std::string& name : kept()) restore_kept(*con_, paths_.way_back(), name, messages);
  }

  TemporaryFolder folder_;
  Paths paths_{folder_.path()};
  fs::path script_ = folder_ / "delete.txt";
  std::unique_ptr<Connection> con_;
};

TEST_F(KilledAction, LeavesTheOldRowsOrTheirWayBack) {
  const auto before = bills();
  const auto length = duration().count();
  EXPECT_NE(bills(), before);
  restore_all();
  EXPECT_EQ(bills(), before);

  std::mt19937 random(1);
  int committed = 0;
  int undone = 0;
  for (int kill = 0; kill < 40; ++kill) {
    fs::remove_all(paths_.way_back());
    ChildProcess console = start();
    console.wait_for_output();
    std::this_thread::sleep_for(std::chrono::microseconds(random() % (length + 1)));
    console.kill();
    console.wait();
    const auto left = bills();
    if (left == before) {
      ++undone;
    } else {
      ++committed;
      for (const auto& rows : {left[0], left[1]}) EXPECT_TRUE(rows.empty());
      EXPECT_EQ(kept().size(), 1u);
    }
    restore_all();
    ASSERT_EQ(bills(), before);
  }
  EXPECT_GT(undone, 0);
  RecordProperty("committed", committed);
}

}  // namespace
}  // namespace tela::testing
