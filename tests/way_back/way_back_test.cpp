// What an action keeps before it removes or rewrites rows, and when it may not run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <sstream>

#include "platform/way_back/kept_folder.h"
#include "report_framework/way_back.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

std::vector<std::string> names_in(const fs::path& folder) {
  std::vector<std::string> names;
  if (fs::exists(folder))
    for (const auto& entry : fs::directory_iterator(folder))
      names.push_back(entry.path().filename());
  std::ranges::sort(names);
  return names;
}

std::string text_of(const fs::path& file) {
  std::ifstream in(file);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

class WayBackTest : public ::testing::Test {
 protected:
  WayBackTest() {
    shop_.run("open frmDailyS_R\n");
    for (const char* row : {"(1,'Amma''s rice',5,-2,3,'2024-01-03')", "(2,null,1,1,2,'2024-01-04')",
                            "(1,'Amma''s rice',3,4,7,'2024-01-09')"})
      shop_.sql(std::string("insert into StockAdjust values ") + row);
    shop_.add_item(5, "SALT", "FOOD", "RAO", -2.5);
    shop_.add_item(6, "SOAP", "HOME", "RAO", 4);
  }

  AppState& app() { return shop_.state(); }
  fs::path folder() const { return shop_.paths().way_back(); }
  /// The folder of the one part of the one action.
  fs::path part() const { return folder() / names_in(folder()).at(0) / "1"; }
  void execute(const std::string& sql) { app().Con->execute(sql); }

  /// Deletes the period's rows; what the failure says, or nothing if it went well.
  std::string failure_of_delete() {
    try {
      WayBack way_back(app(), "frmStockAdjustReport");
      way_back.begin();
      way_back.keep_removed("StockAdjust", period_);
      execute("Delete from StockAdjust " + period_);
      way_back.commit();
    } catch (const std::runtime_error& failure) {
      return failure.what();
    }
    return {};
  }

  const std::string period_ = "where AdjustDate>='01/Jan/2024' and AdjustDate<='05/Jan/2024'";
  Shop shop_;
};

TEST_F(WayBackTest, KeepsTheRowsThatAStatementRemoves) {
  WayBack way_back(app(), "frmStockAdjustReport");
  way_back.begin();
  way_back.keep_removed("StockAdjust", period_);
  execute("Delete from StockAdjust " + period_);
  EXPECT_THAT(names_in(folder()), IsEmpty()) << "nothing appears before the commit";
  way_back.commit();

  EXPECT_EQ(shop_.sql("select count(*) from StockAdjust").dump(), "[[1]]");
  EXPECT_THAT(names_in(folder()),
              ElementsAre(MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}_[0-9]{2}-[0-9]{2}-[0-9]{2}"
                                       "_frmStockAdjustReport")));
  EXPECT_EQ(text_of(part() / "StockAdjust_removed.csv"),
            "iCode,iName,OpStock,AdjustQty,ClStock,AdjustDate\n"
            "1,Amma's rice,5,-2,3,2024-01-03\n2,,1,1,2,2024-01-04\n");
  EXPECT_EQ(text_of(part() / "contents.csv"),
            "table,change,key,written,file,after,rows\n"
            "StockAdjust,removed,\"\",\"\",StockAdjust_removed.csv,\"\",2\n");
}

TEST_F(WayBackTest, KeepsOldAndNewValuesOfTheRowsThatAStatementChanges) {
  execute("update Items set Stock=0 where iCode=6");
  shop_.add_item(7, "OIL", "FOOD", "RAO", -1);
  WayBack way_back(app(), "frmStockZero");
  way_back.begin();
  way_back.keep_changed("Items", {{"Stock", "0"}}, "where stock<=0", {"iCode"});
  execute("Update Items set Stock=0 where stock<=0");
  way_back.commit();
  EXPECT_THAT(text_of(part() / "Items_before.csv"),
              MatchesRegex("iCode,iName,.*\n5,SALT,[^\n]*-2\\.5,FOOD[^\n]*\n7,OIL[^\n]*\n"))
      << "the row that held 0 already is left out";
  EXPECT_EQ(text_of(part() / "Items_after.csv"), "Stock\n0\n0\n");
}

TEST_F(WayBackTest, AnActionOfSeveralTransactionsIsOneFolder) {
  WayBack way_back(app(), "frmOptimumStockUpdate");
  for (const int code : {5, 6}) {
    const std::string item = "where iCode=" + std::to_string(code);
    way_back.begin();
    way_back.keep_changed("Items", {{"ministock", "3"}}, item, {"iCode"});
    execute("Update items set ministock=3 " + item);
    way_back.commit();
  }
  const auto names = names_in(folder());
  ASSERT_THAT(names, SizeIs(1));
  EXPECT_THAT(names_in(folder() / names[0]), ElementsAre("1", "2"));
  EXPECT_THAT(text_of(folder() / names[0] / "2" / "Items_before.csv"), HasSubstr("6,SOAP"));
}

TEST_F(WayBackTest, WhatRemovesNothingLeavesNoFolder) {
  WayBack way_back(app(), "frmStockAdjustReport");
  way_back.begin();
  way_back.keep_removed("StockAdjust", "where iCode=99");
  way_back.commit();
  EXPECT_THAT(names_in(folder()), IsEmpty());
}

TEST_F(WayBackTest, AnActionThatFailsChangesNothingAndLeavesNoFolder) {
  {
    WayBack way_back(app(), "frmStockAdjustReport");
    way_back.begin();
    way_back.keep_removed("StockAdjust", period_);
    execute("Delete from StockAdjust " + period_);
    EXPECT_THROW(execute("Delete from NoTable"), DatabaseError);
  }
  EXPECT_FALSE(app().Con->in_transaction());
  EXPECT_EQ(shop_.sql("select count(*) from StockAdjust").dump(), "[[3]]");
  EXPECT_THAT(names_in(folder()), IsEmpty());
}

TEST_F(WayBackTest, WhereNothingCanBeKeptNothingIsChanged) {
  std::ofstream(folder()) << "a file where the folder should be";
  EXPECT_THAT(failure_of_delete(),
              AllOf(HasSubstr("Nothing is changed"), HasSubstr(folder().string())));
  EXPECT_EQ(shop_.sql("select count(*) from StockAdjust").dump(), "[[3]]");
}

/// While it lives, no file grows beyond so many bytes, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*signal_)(int);
  rlimit before_{};
};

TEST_F(WayBackTest, OnAFullDiskNothingIsChangedAndNothingIsLeft) {
  {
    const FullDisk full(100);
    EXPECT_THAT(failure_of_delete(), HasSubstr("the disk is full"));
  }
  EXPECT_EQ(shop_.sql("select count(*) from StockAdjust").dump(), "[[3]]");
  EXPECT_THAT(names_in(folder()), IsEmpty());
}

TEST_F(WayBackTest, WhatAKilledProgramLeftUnfinishedIsRemovedByTheNext) {
  fs::create_directories(folder() / "2024-01-01_10-00-00_frmStockZero.unfinished" / "1");
  const auto kept = keep_in_folder(folder(), "frmAtWork");
  kept->append("a.csv", "a\n");
  EXPECT_EQ(failure_of_delete(), "");
  EXPECT_THAT(names_in(folder()), UnorderedElementsAre(EndsWith("frmAtWork.unfinished"),
                                                       EndsWith("frmStockAdjustReport")))
      << "one that is still being written stays";
}

}  // namespace
}  // namespace tela::testing
