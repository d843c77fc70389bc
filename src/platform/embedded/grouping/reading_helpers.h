// Connections that read the catalogue beside the session's own, each for a thread of its own.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/embedded/command_clock.h"
#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// Helpers see exactly what the session's statement sees, or they do not help. SQLite cannot hand a
/// view of the file from one connection to another, but it counts, for each connection, whether
/// others have committed (https://sqlite.org/pragma.html#pragma_data_version): a helper whose count
/// is the same before the statement and within its own transaction sees the statement's view.
class ReadingHelpers {
 public:
  /// `clock` is the session's: helpers end in time with the statement that they help.
  ReadingHelpers(std::filesystem::path file, CommandClock& clock);
  ~ReadingHelpers();
  ReadingHelpers(const ReadingHelpers&) = delete;
  ReadingHelpers& operator=(const ReadingHelpers&) = delete;

  /// To be called before a statement that they may help. The first time it opens their connections;
  /// where that fails they do not help.
  void prepare_for_statement() noexcept;

 private:
  friend class HelpersAtWork;
  struct Helper;

  void open();

  std::filesystem::path file_;
  CommandClock& clock_;
  std::vector<std::unique_ptr<Helper>> helpers_;
};

/// The helpers within one statement. They are free again at the end of its scope.
class HelpersAtWork {
 public:
  /// Of `helpers` those that see what the statement at work on `main` sees: none where other
  /// programs have committed since they were prepared, or where `main` is in a transaction, whose
  /// changes nobody else sees.
  HelpersAtWork(ReadingHelpers& helpers, sqlite3* main);

  std::size_t count() const { return views_.size(); }
  sqlite3* connection(std::size_t helper) const { return views_[helper].get(); }

 private:
  struct EndView {
    void operator()(sqlite3* reader) const;
  };
  std::vector<std::unique_ptr<sqlite3, EndView>> views_;
};

}  // namespace tela::embedded
