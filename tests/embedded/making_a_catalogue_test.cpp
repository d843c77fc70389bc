// A catalogue file is made whole or not at all, whoever else makes one.
#include <gmock/gmock.h>

#include <fstream>

#include "embedded/shop.h"
#include "support/watched_disk.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Row = std::vector<Value>;

constexpr std::string_view table_and_row[] = {"create table Sales (BillNo int)",
                                              "insert into Sales values(1)"};

std::string failure_of_making(const fs::path& file,
                              const std::function<void(EmbeddedCatalogue&)>& fill = {}) {
  try {
    create_embedded_catalogue(file, table_and_row, fill);
  } catch (const std::exception& error) {
    return error.what();
  }
  return "no failure";
}

std::size_t files_in(const TemporaryFolder& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
}

TEST(MakingACatalogueTest, AFailedScriptOrFillingLeavesNothing) {
  const TemporaryFolder folder;
  const fs::path file = folder / "TelaData.db";
  const std::string_view bad[] = {"create table Sales (BillNo int)\nGO\ncreate tabel x (a int)\n"};
  EXPECT_THROW(create_embedded_catalogue(file, bad), DatabaseError);
  EXPECT_EQ(failure_of_making(file, [](auto&) { throw std::runtime_error("no rows"); }), "no rows");
  EXPECT_EQ(files_in(folder), 0u);
}

// The disk is full at each write in turn, the last ones of the closing included.
TEST(MakingACatalogueTest, ADiskThatIsFullAtAnyWriteLeavesAWholeFileOrNone) {
  const TemporaryFolder folder;
  const fs::path file = folder / "TelaData.db";
  int writes = 0;
  for (bool was_full = true; was_full; ++writes) {
    std::string failure;
    {
      int left = writes;
      const WatchedDisk disk([&](const DiskCall& call) {
        return call.kind == DiskCall::Kind::write && --left < 0 ? SQLITE_FULL : SQLITE_OK;
      });
      failure = failure_of_making(file);
      was_full = left < 0;
    }
    if (was_full) {
      EXPECT_THAT(failure, HasSubstr("The disk that holds the catalogue is full"));
      EXPECT_EQ(files_in(folder), 0u) << "after " << writes << " writes";
    }
  }
  EXPECT_GT(writes, 5);
  EXPECT_EQ(files_in(folder), 1u);
  const EmbeddedCatalogue made(file);
  EXPECT_THAT(made.integrity_check(), ::testing::IsEmpty());
  EXPECT_THAT(rows_of(made, "Sales"), ElementsAre(Row{std::int64_t{1}}));
}

TEST(MakingACatalogueTest, WhatStandsUnderItsNameIsLeftAsItIs) {
  const TemporaryFolder folder;
  const fs::path file = folder / "TelaData.db";
  const auto make_other = [&](EmbeddedCatalogue&) { std::ofstream(file) << "of another program"; };
  EXPECT_THAT(failure_of_making(file, make_other), HasSubstr("is there already"));
  EXPECT_THAT(failure_of_making(file), HasSubstr("is there already"));
  std::string text;
  std::getline(std::ifstream(file), text);
  EXPECT_EQ(text, "of another program");
  EXPECT_EQ(files_in(folder), 1u);

  fs::remove(file);
  fs::create_symlink("nowhere", file);
  EXPECT_THAT(failure_of_making(file), HasSubstr("is there already"));
}

// SQLite would take the log for the new file's and read its pages into it.
TEST(MakingACatalogueTest, TheLogOfAFormerCatalogueIsNotTakenOver) {
  const Shop shop;
  const fs::path log = shop.file.string() + "-wal";
  {
    OtherProgram till(shop.file);
    ASSERT_EQ(till.run("INSERT INTO Sales(BillNo) VALUES(77)"), SQLITE_OK);
    fs::copy_file(log, shop.folder / "kept");
  }
  fs::remove(shop.file);
  fs::rename(shop.folder / "kept", log);
  EXPECT_THAT(failure_of_making(shop.file), HasSubstr("TelaData.db-wal' belongs to a former"));
  EXPECT_EQ(files_in(shop.folder), 1u);
}

TEST(MakingACatalogueTest, AKilledProgramsFolderIsRemovedAndALivingOnesIsNot) {
  const TemporaryFolder folder;
  const fs::path file = folder / "TelaData.db";
  const auto is_old = [](const fs::path& path) {
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
  };
  fs::create_directory(folder / "TelaData.db.unfinished-killed");
  std::ofstream(folder / "TelaData.db.unfinished-killed/TelaData.db") << "half";
  is_old(folder / "TelaData.db.unfinished-killed");
  create_embedded_catalogue(file, table_and_row, [&](EmbeddedCatalogue&) {
    EXPECT_EQ(files_in(folder), 1u);
    for (const auto& entry : fs::directory_iterator(folder.path())) is_old(entry.path());
    EXPECT_THAT(failure_of_making(file, [](auto&) { throw std::runtime_error("ended"); }), "ended");
  });
  EXPECT_THAT(rows_of(EmbeddedCatalogue(file), "sales"), ElementsAre(Row{std::int64_t{1}}));
}

}  // namespace
}  // namespace tela::testing
