// An action that is killed: whenever that happens, the rows are as they were, or they are written
// with their way back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <limits>
#include <set>
#include <sstream>

#include "apps/tela_catalogue/commands/kept_commands.h"
#include "platform/way_back/kept_folder.h"
#include "support/shop.h"
#include "support/watched_disk.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::HasSubstr;

/// Ends the process at the given step. A step is whatever changes the disk: of the catalogue, or of
/// the kept rows.
class Killer {
 public:
  explicit Killer(int steps) : left_(steps) {}

  void step() {
    if (is_armed_ && left_-- == 0) std::raise(SIGKILL);
  }
  void arm() { is_armed_ = true; }

 private:
  int left_;
  bool is_armed_ = false;
};

/// Kept rows whose steps are counted: ahead of each, and behind the last.
class CountedRows : public KeptRows {
 public:
  CountedRows(std::unique_ptr<KeptRows> rows, Killer& killer)
      : rows_(std::move(rows)), killer_(killer) {}
  void append(std::string_view file, std::string_view text) override {
    killer_.step();
    rows_->append(file, text);
  }
  void publish() override {
    killer_.step();
    rows_->publish();
    killer_.step();
  }
  void discard() noexcept override { rows_->discard(); }

 private:
  std::unique_ptr<KeptRows> rows_;
  Killer& killer_;
};

using Tables = std::map<std::string, std::string>;

struct KilledScreen {
  const char* screen;
  std::string ahead;  ///< commands
  std::string press;
  /// Whether tables that a kill left are a state between the old and the new one that the action's
  /// steps allow.
  std::function<bool(const Tables& before, const Tables& left, const Tables& after)> is_between;
};

bool is_never_between(const Tables&, const Tables&, const Tables&) {
  return false;
}

// First the levels, all at once; then the quantities that are there already, row by row; then the
// others, all at once.
bool is_between_optimum_steps(const Tables& before, const Tables& left, const Tables& after) {
  const std::string& quantities = left.at("OptimumStock");
  return left.at("Items") == after.at("Items") &&
         (quantities == before.at("OptimumStock") ||
          quantities == R"([[2,"Farmer's Soap",6],[1,"Rice",10],[8,"Gone",4]])" ||
          quantities == R"([[2,"Farmer's Soap",5],[1,"Rice",10],[8,"Gone",4]])");
}

const KilledScreen screens[] = {
    {"frmOptimumStock", "open frmOptimumStock\npick Combo1 ALL SUPPLIER\npress cmdView\n",
     "press cmdUpdate", is_between_optimum_steps},
    {"frmGstModifySales", "open frmGstModifySales\nset Combo1 18\nset Combo2 5\n", "press Command1",
     is_never_between},
    {"frmHsnSalesReport", "open frmHsnSalesReport\nanswer ok\n", "press cmdUpdate",
     is_never_between},
    {"StartDeleteBills", "open frmDailyS_R\nanswer ok\n", "open StartDeleteBills",
     is_never_between},
};

void PrintTo(const KilledScreen& killed, std::ostream* out) {
  *out << killed.screen;
}

class KilledAtEachStep : public ::testing::TestWithParam<KilledScreen> {
 protected:
  KilledAtEachStep() {
    fs::create_directory(origin_);
    create_catalogue(Paths(origin_));
    Shop shop(origin_);
    shop.add_item(1, "Rice", "GRAINS", "Lily");
    shop.add_item(2, "Farmer's Soap ", "SOAPS", "Lily");
    shop.add_item(3, "Salt", "SPICES", "Lily");
    shop.sql("update Items set ministock=7,iHSNcode='1006'");
    shop.sql("insert into OptimumStock values (2,'Farmer''s Soap',6),(1,'Rice',5),(8,'Gone',4)");
    shop.add({.number = 1,
              .lines = {{1, "Rice", 50, 45, 30, 10},
                        {2, "Farmer's Soap ", 12, 10, 8, 5},
                        {3, "Salt", 9, 8, 6, 100}}});
    shop.sql("update Sales set iIGst=18,iCGst=9,iSGst=9");
    shop.sql("update bill_no set billno=1");
  }

  /// The action on a fresh copy of the shop, in a process that ends at that step. Whether it came
  /// to the step.
  bool kill_at(int steps) const {
    fs::remove_all(root_);
    fs::copy(origin_, root_, fs::copy_options::recursive);
    const pid_t child = fork();
    if (child == 0) run_until(steps);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
  }

  [[noreturn]] void run_until(int steps) const {
    Killer killer(steps);
    const WatchedDisk disk([&](const DiskCall& call) {
      if (call.changes_disk()) killer.step();
      return SQLITE_OK;
    });
    Shop shop(root_);
    shop.platform().keep_rows = [&](std::string_view screen) {
      return std::make_unique<CountedRows>(keep_in_folder(shop.paths().way_back(), screen), killer);
    };
    shop.run(GetParam().ahead);
    killer.arm();
    shop.run(GetParam().press);
    _exit(0);
  }

  static void restore_all(Shop& shop) {
    std::ostringstream list;
    list_kept(shop.paths().way_back(), list);
    std::vector<std::string> names;
    std::istringstream lines(list.str());
    for (std::string line; std::getline(lines, line);)
      if (!line.starts_with(' ')) names.insert(names.begin(), line);
    std::ostringstream said;
    Messages messages(said, false);
    for (const std::string& name : names)
      restore_kept(*shop.state().Con, shop.paths().way_back(), name, messages);
  }

  TemporaryFolder folder_;
  fs::path origin_ = folder_ / "origin";
  fs::path root_ = folder_ / "shop";
};

// Brought back at once, or after the action was done again; the one or the other in turn.
TEST_P(KilledAtEachStep, LeavesTheOldRowsOrTheirWayBack) {
  Tables before;
  Tables after;
  {
    kill_at(0);
    before = Shop(root_).stored();
    kill_at(std::numeric_limits<int>::max());
    after = Shop(root_).stored();
    EXPECT_NE(after, before);
  }
  std::set<Tables> seen;
  int step = 0;
  for (; kill_at(step); ++step) {
    SCOPED_TRACE(step);
    Shop shop(root_);
    const Tables left = shop.stored();
    EXPECT_TRUE(left == before || left == after || GetParam().is_between(before, left, after));
    seen.insert(left);
    if (step % 2 == 0) {
      shop.run(GetParam().ahead + GetParam().press);
      EXPECT_EQ(changed_tables(after, shop.stored()), std::vector<std::string>());
    }
    restore_all(shop);
    EXPECT_EQ(changed_tables(before, shop.stored()), std::vector<std::string>());
  }
  EXPECT_GE(step, 10);
  EXPECT_EQ(seen.count(before) + seen.count(after), 2u);
}

INSTANTIATE_TEST_SUITE_P(EachAction, KilledAtEachStep, ::testing::ValuesIn(screens),
                         [](const auto& killed) { return killed.param.screen; });

}  // namespace
}  // namespace tela::testing
