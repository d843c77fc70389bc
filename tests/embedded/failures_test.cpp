// Files and disks that fail: a clear message, and the stored data as the last commit left them.
//
// Where a failure needs a process of its own (a user without rights, a limit on file sizes), the
// case runs in a child, which writes what it saw to standard error.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <iostream>

#include "embedded/shop.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using Kind = DatabaseError::Kind;

/// "kind: message" of the failure of `action`.
std::string failure_of(const std::function<void()>& action) {
  static const char* const kinds[] = {"connection", "syntax",  "unknown_name", "value",
                                      "busy",       "storage", "other"};
  try {
    action();
  } catch (const DatabaseError& error) {
    return std::string(kinds[static_cast<int>(error.kind())]) + ": " + error.what();
  }
  return "no failure";
}

std::string failure_of_opening(const fs::path& file) {
  return failure_of([&] { make_embedded_connection(file)->open("Initial Catalog=TelaData"); });
}

void overwrite(const fs::path& file, std::streamoff position, const std::string& bytes) {
  std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(position);
  stream << bytes;
}

void add_bills(Connection& connection, int from, int to) {
  for (int i = from; i < to; ++i)
    connection.execute("insert into Sales values(" + std::to_string(i) +
                       ",'05/Jan/2024','10:30','rice and oil',1)");
}

std::int64_t bills(Connection& connection) {
  return std::get<std::int64_t>(connection.execute("select count(*) from Sales").rows[0][0]);
}

TEST(FailuresTest, AFileThatIsNoCatalogueIsNotOpened) {
  const TemporaryFolder folder;
  std::ofstream(folder / "text.db") << std::string(5000, 'x');
  std::ofstream(folder / "empty.db");
  fs::create_directory(folder / "folder.db");
  const struct {
    const char* file;
    const char* failure;
  } cases[] = {
      {"missing.db", "connection: The catalogue file '.*missing.db' is not there"},
      {"folder.db", "connection: .*folder.db' is no file"},
      {"text.db", "storage: .*text.db' is damaged"},
      {"empty.db", "storage: .*empty.db' is damaged"},
  };
  for (const auto& c : cases)
    EXPECT_THAT(failure_of_opening(folder / c.file), ::testing::ContainsRegex(c.failure));
  EXPECT_FALSE(fs::exists(folder / "missing.db"));
}

TEST(FailuresTest, AConnectionCanBeOpenedOnceItsFileIsThere) {
  const Shop shop;
  const fs::path moved = shop.folder / "moved.db";
  fs::rename(shop.file, moved);
  const auto connection = make_embedded_connection(shop.file);
  EXPECT_THROW(connection->open(""), DatabaseError);
  fs::rename(moved, shop.file);
  connection->open("");
  EXPECT_EQ(bills(*connection), 0);
}

TEST(FailuresTest, ADamagedPageIsToldWhereItIsRead) {
  const Shop shop;
  {
    const auto connection = shop.connect();
    connection->begin_trans();
    add_bills(*connection, 0, 2000);
    connection->commit_trans();
  }
  overwrite(shop.file, 4096 * 6, std::string(4096, 'x'));
  const auto connection = shop.connect();
  EXPECT_THAT(failure_of([&] { connection->execute("select sum(Qty) from Sales"); }),
              ::testing::ContainsRegex("storage: .*TelaData.db' is damaged"));
  EXPECT_FALSE(EmbeddedCatalogue(shop.file).integrity_check().empty());
  connection->execute("insert into SalesPrint values('rice',1)");
}

TEST(FailuresTest, ATableThatTheCatalogueLacksIsNamed) {
  const Shop shop;
  const auto connection = shop.connect();
  EXPECT_THAT(failure_of([&] { connection->execute("select * from tword"); }),
              HasSubstr("unknown_name: Invalid object name 'tword'"));
  EXPECT_THAT(failure_of([&] { connection->execute("select * from tela_procedures"); }),
              HasSubstr("Invalid object name"));
}

/// Runs `action` as a user who is not the administrator, whom no file refuses anything.
void without_rights(const std::function<void()>& action) {
  if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) {
    std::cerr << "cannot change the user\n";
    exit(1);
  }
  action();
  exit(0);
}

TEST(FailuresTest, AReadOnlyCatalogueIsReadAndRefusesEveryChange) {
  const Shop shop;
  add_bills(*shop.connect(), 0, 3);
  fs::permissions(shop.folder.path(), fs::perms::all);
  fs::permissions(shop.file, fs::perms(0444));
  EXPECT_EXIT(without_rights([&] {
                const auto connection = shop.connect();
                std::cerr << bills(*connection) << " bills; ";
                std::cerr << failure_of([&] { connection->execute("delete from Sales"); });
                connection->begin_trans();
                std::cerr << "; " << bills(*connection);
              }),
              ::testing::ExitedWithCode(0),
              "3 bills; storage: The catalogue file '.*TelaData.db' is read-only.; 3");
}

TEST(FailuresTest, AReadOnlyFolderIsTold) {
  const Shop shop;
  fs::permissions(shop.folder.path(), fs::perms(0555));
  fs::permissions(shop.file, fs::perms(0666));
  EXPECT_EXIT(without_rights([&] { std::cerr << failure_of_opening(shop.file); }),
              ::testing::ExitedWithCode(0),
              "storage: The catalogue file '.*' cannot be shared: its folder is read-only");
  fs::permissions(shop.folder.path(), fs::perms::owner_all);
}

/// From here on no file of this process grows beyond `bytes`, as on a full disk.
void limit_files(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(FailuresTest, AFullDiskLeavesTheLastCommit) {
  const Shop shop;
  const auto fill = [&] {
    const auto connection = shop.connect();
    connection->begin_trans();
    add_bills(*connection, 0, 500);
    connection->commit_trans();
    limit_files(128 * 1024);
    connection->begin_trans();
    std::cerr << failure_of([&] {
      add_bills(*connection, 500, 100'000);
      connection->commit_trans();
    });
    if (connection->in_transaction()) connection->rollback_trans();
    std::cerr << "; " << bills(*connection);
    exit(0);
  };
  EXPECT_EXIT(fill(), ::testing::ExitedWithCode(0),
              "storage: The catalogue file .* cannot be written: the disk may be full.*; 500");
  EXPECT_EQ(bills(*shop.connect()), 500);
  EXPECT_THAT(EmbeddedCatalogue(shop.file).integrity_check(), ::testing::IsEmpty());
}

TEST(FailuresTest, ACancelledStatementChangesNothingAndTheConnectionLivesOn) {
  const Shop shop;
  const auto connection = shop.connect();
  connection->begin_trans();
  add_bills(*connection, 0, 400);
  connection->commit_trans();
  const std::string crowd = "(select count(*) from Sales a,Sales b,Sales c)";
  int asked = 0;
  connection->set_keep_going([&](std::int64_t) { return ++asked < 5; });
  const auto cancels = [&](const std::string& sql) {
    asked = 0;
    EXPECT_THROW(connection->execute(sql), Cancelled) << sql;
    EXPECT_EQ(asked, 5) << sql;
  };
  cancels("select count(*) from Sales a,Sales b,Sales c");
  cancels("update Sales set Qty=" + crowd);
  cancels("insert into Sales select BillNo,BillDate,BillTime,iName,Qty+" + crowd + " from Sales");
  connection->begin_trans();
  asked = -1000;
  connection->execute("delete from Sales where BillNo<100");
  cancels("update Sales set Qty=" + crowd);
  asked = 5;  // the way out is not cancelled
  connection->rollback_trans();
  connection->set_keep_going({});
  EXPECT_EQ(connection->execute("select count(*),max(Qty) from Sales").rows,
            (std::vector<std::vector<Value>>{{std::int64_t{400}, 1.0}}));
}

}  // namespace
}  // namespace tela::testing
