// The write-ahead log is copied into the file when it has grown, and only while nobody else
// commits.
#include <cstdlib>

#include "embedded/shop.h"
#include "support/watched_disk.h"

namespace tela::testing {
namespace {

class LogKeeperTest : public ::testing::Test {
 protected:
  /// The bills that the file holds by itself, without its log.
  std::int64_t bills_in_the_file() {
    // By a process of its own: this one would lose SQLite's locks on closing the file.
    const std::filesystem::path copy = shop_.folder / "copy.db";
    EXPECT_EQ(std::system(("cp " + shop_.file.string() + " " + copy.string()).c_str()), 0);
    const auto connection = make_embedded_connection(copy);
    connection->open("");
    return std::get<std::int64_t>(
        connection->execute("select count(*) from Sales").rows.at(0).at(0));
  }

  Shop shop_;
};

/// More bills than a short log holds.
constexpr const char* many_bills =
    "INSERT INTO Sales(BillNo,iName) WITH n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE "
    "i<60000) SELECT i,'an item of the shop, and more of its name that takes room' FROM n";

TEST_F(LogKeeperTest, ALongLogIsCopiedAfterItsCommit) {
  const OtherProgram keeps_the_log(shop_.file);
  const auto program = shop_.connect();
  program->execute("insert into Sales values(1,null,null,'rice',1)");
  EXPECT_EQ(bills_in_the_file(), 0);
  program->begin_trans();
  for (int i = 0; i < 299; ++i)
    program->execute("insert into Sales values(1,'05/Jan/2024','10:30','a name in full len',2.5)");
  program->commit_trans();
  program->execute("insert into Sales select a.* from Sales a,Sales b");
  EXPECT_EQ(bills_in_the_file(), 300 + 300 * 300);
}

TEST_F(LogKeeperTest, ATillThatWritesIsNotInterrupted) {
  OtherProgram till(shop_.file);
  ASSERT_EQ(till.run(many_bills), SQLITE_OK);
  ASSERT_EQ(till.run("BEGIN IMMEDIATE"), SQLITE_OK);
  // A checkpoint is due, but this is the till's turn. A connection that waited for it would do so
  // for an hour.
  const auto program = make_embedded_connection(shop_.file);
  program->set_command_timeout(std::chrono::hours(1));
  program->open("");
  program->execute("select count(*) from Sales");
  EXPECT_EQ(bills_in_the_file(), 0);
  ASSERT_EQ(till.run("COMMIT"), SQLITE_OK);
  shop_.connect()->execute("select count(*) from Sales");
  EXPECT_EQ(bills_in_the_file(), 60'000);
}

TEST_F(LogKeeperTest, CommitsAndCheckpointsWaitUntilTheyAreOnTheDisk) {
  int syncs = 0;
  const WatchedDisk disk([&](const DiskCall& call) {
    if (call.kind == DiskCall::Kind::sync) ++syncs;
    return SQLITE_OK;
  });
  const OtherProgram keeps_the_log(shop_.file);
  const auto program = shop_.connect();
  syncs = 0;
  program->execute("insert into Sales values(1,null,null,'rice',1)");
  EXPECT_GT(syncs, 0);

  program->begin_trans();
  for (int i = 0; i < 300; ++i)
    program->execute("insert into Sales values(1,'05/Jan/2024','10:30','a name in full len',2.5)");
  program->commit_trans();
  syncs = 0;
  program->execute("insert into Sales select a.* from Sales a,Sales b");
  EXPECT_GE(syncs, 3) << "the log at the commit, the log and the file at the copying";
}

}  // namespace
}  // namespace tela::testing
