// The commands that make, fill and copy a catalogue while a call of SQLite fails: a whole file or
// none under its name, its rows all or none, a failure with words, and the next try works.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "apps/tela_catalogue/commands/commands.h"
#include "failure_points/failure_points.h"
#include "platform/embedded/embedded_catalogue.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

class CommandFailurePoints : public ::testing::Test {
 protected:
  /// `work` makes `made`, a file that is not there before.
  void expect_whole_or_none(const fs::path& made, const std::function<void()>& work, int samples) {
    for (const auto kind : {FailingCalls::Kind::disk, FailingCalls::Kind::memory}) {
      calls_.arm(kind, 0, false);
      work();
      const int count = calls_.disarm();
      fs::remove(made);
      try_points(kind, count, samples, [&](const FailurePoint& point) {
        SCOPED_TRACE(point.number);
        const std::string failure = failure_at(point, work);
        if (!calls_.has_failed()) {
          fs::remove(made);
          return false;
        }
        EXPECT_EQ(fs::exists(made), failure.empty()) << failure;
        if (!fs::exists(made)) work();
        EXPECT_THAT(EmbeddedCatalogue(made).integrity_check(), IsEmpty());
        fs::remove(made);
        return true;
      });
    }
  }

  /// What the user is told; empty if the work was done.
  std::string failure_at(const FailurePoint& point, const std::function<void()>& work) {
    calls_.arm(point.kind, point.number, point.from_then_on);
    std::string failure;
    try {
      work();
    } catch (const std::exception& error) {
      failure = error.what();
    }
    calls_.disarm();
    return failure;
  }

  std::int64_t items() const {
    const auto connection = make_embedded_connection(file_);
    connection->open("");
    return std::get<std::int64_t>(connection->execute("select count(*) from Items").rows[0][0]);
  }

  FailingCalls calls_;
  TemporaryFolder folder_;
  fs::path file_ = folder_ / "TelaData.db";
  std::ostringstream said_;
  Messages messages_{said_, false};
};

TEST_F(CommandFailurePoints, CreateLeavesAWholeFileOrNone) {
  expect_whole_or_none(
      file_, [&] { create_catalogue(file_, messages_); }, 10);
}

TEST_F(CommandFailurePoints, DemoLeavesAWholeFileOrNone) {
  const demo::DemoOptions small{
      .days = 1, .bills_per_day = 3, .items = 20, .last_day = std::chrono::year(2024) / 1 / 5};
  expect_whole_or_none(
      file_, [&] { make_demo_catalogue(file_, small, messages_); }, 5);
}

TEST_F(CommandFailurePoints, BackupLeavesAWholeFileOrNone) {
  create_catalogue(file_, messages_);
  const fs::path copy = folder_ / "copy.db";
  expect_whole_or_none(
      copy, [&] { back_up_catalogue(file_, copy, messages_); }, 10);
}

TEST_F(CommandFailurePoints, ImportAddsAllRowsOrNone) {
  const fs::path csv = folder_ / "items.csv";
  std::ofstream(csv) << "iCode,iName\n1,Rice\n2,Soap\n3,Salt\n";
  create_catalogue(file_, messages_);
  const auto work = [&] { import_table(file_, "Items", csv, messages_); };
  for (const auto kind : {FailingCalls::Kind::disk, FailingCalls::Kind::memory}) {
    calls_.arm(kind, 0, false);
    work();
    try_points(kind, calls_.disarm(), 10, [&](const FailurePoint& point) {
      SCOPED_TRACE(point.number);
      const std::int64_t before = items();
      const std::string failure = failure_at(point, work);
      if (!calls_.has_failed()) return false;
      const std::int64_t left = items();
      EXPECT_EQ(left, failure.empty() ? before + 3 : before) << failure;
      work();
      EXPECT_EQ(items(), left + 3);
      EXPECT_THAT(EmbeddedCatalogue(file_).integrity_check(), IsEmpty());
      return true;
    });
  }
}

TEST_F(CommandFailurePoints, ARollBackThatLackedMemoryLetsTheTillsBillAfterTheNextStatement) {
  create_catalogue(file_, messages_);
  const auto program = make_embedded_connection(file_);
  program->open("");
  program->begin_trans();
  program->execute("insert into Items (iCode) values (1)");
  EXPECT_NE(failure_at({FailingCalls::Kind::memory, 1, true}, [&] { program->rollback_trans(); }),
            "");
  program->execute("select count(*) from Items");
  const auto till = make_embedded_connection(file_);
  till->set_command_timeout(std::chrono::seconds(1));
  till->open("");
  till->execute("insert into Items (iCode) values (2)");
  EXPECT_EQ(items(), 1);
}

}  // namespace
}  // namespace tela::testing
