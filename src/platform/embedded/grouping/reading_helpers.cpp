#include "platform/embedded/grouping/reading_helpers.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/embedded/sql_functions.h"

namespace tela::embedded {
namespace {

// With the session's own thread two to four: the disk and the memory feed no more.
std::size_t helper_count() {
  return std::clamp(std::thread::hardware_concurrency(), 2U, 4U) - 1;
}

}  // namespace

struct ReadingHelpers::Helper {
  Helper(const std::filesystem::path& file, CommandClock& clock)
      : database(file, SQLITE_OPEN_READWRITE) {
    clock.watch(database);
    database.run("PRAGMA query_only=ON; PRAGMA wal_autocheckpoint=0; PRAGMA cache_size=-16384");
    register_sql_functions(database.handle());
    commit_count = Statement(database, "PRAGMA data_version");
  }

  std::int64_t count_commits() {
    const Run run(commit_count);
    commit_count.step();
    return commit_count.number(0);
  }

  Database database;
  Statement commit_count;
  std::int64_t seen = 0;
};

ReadingHelpers::ReadingHelpers(std::filesystem::path file, CommandClock& clock)
    : file_(std::move(file)), clock_(clock) {}

ReadingHelpers::~ReadingHelpers() = default;

void ReadingHelpers::open() {
  while (helpers_.size() < helper_count()) {
    helpers_.push_back(std::make_unique<Helper>(file_, clock_));
  }
}

void ReadingHelpers::prepare_for_statement() noexcept {
  try {
    open();
    for (const auto& helper : helpers_) helper->seen = helper->count_commits();
  } catch (const std::exception&) {  // the statement does without
    helpers_.clear();
  }
}

HelpersAtWork::HelpersAtWork(ReadingHelpers& helpers, sqlite3* main) {
  if (sqlite3_get_autocommit(main) == 0) return;
  for (const auto& helper : helpers.helpers_) {
    helper->database.run("BEGIN");
    views_.emplace_back(helper->database.handle());
    if (helper->count_commits() != helper->seen) views_.pop_back();
  }
}

void HelpersAtWork::EndView::operator()(sqlite3* reader) const {
  sqlite3_exec(reader, "ROLLBACK", nullptr, nullptr, nullptr);
}

}  // namespace tela::embedded
