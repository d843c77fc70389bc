// One open embedded catalogue: the Connection that runs T-SQL on SQLite.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/embedded/catalogue_schema.h"
#include "platform/embedded/command_clock.h"
#include "platform/embedded/grouping/reading_helpers.h"
#include "platform/embedded/log_keeper.h"
#include "platform/embedded/sqlite_handles.h"
#include "platform/embedded/statement_cache.h"
#include "platform/embedded/transaction.h"
#include "platform/tsql/values.h"

namespace tela {

class EmbeddedSession : public Connection {
 public:
  explicit EmbeddedSession(std::filesystem::path file) : file_(std::move(file)) {}
  ~EmbeddedSession() override;

  /// Opens the session's file; the connection string has chosen it already.
  void open(std::string_view connection_string) override;
  void set_cursor_location(CursorLocation) override {}
  void set_command_timeout(std::chrono::seconds timeout) override;
  void set_keep_going(const KeepGoing& keep_going) override;
  RowSet execute(std::string_view sql) override;
  void read_each(std::string_view sql, const RowVisitor& visit) override;
  void begin_trans() override;
  void commit_trans() override;
  void rollback_trans() override;
  bool in_transaction() const override;

  // What the tools need beyond T-SQL.

  /// The engine itself. What runs on it may take any time: a tool reads whole tables.
  embedded::Database& database();
  const embedded::CatalogueSchema& schema();
  /// Readies the open transaction for rows that are written past execute().
  void enter_for_writing();
  /// To be called when such a row has failed.
  void note_failure(const DatabaseError& error);

 private:
  /// What exists while the file is open. The clock and the log keeper are watched by the database,
  /// so they outlive it.
  struct OpenFile {
    explicit OpenFile(const std::filesystem::path& file);

    embedded::CommandClock clock;
    embedded::LogKeeper log;
    embedded::Database database;
    embedded::CatalogueSchema schema;
    embedded::StatementCache cache;
    embedded::Transaction transaction;
    embedded::ReadingHelpers helpers;
  };

  OpenFile& opened() const;
  void notice_schema_changes();
  /// As RowVisitor; the row may be moved away.
  using RowTaker = std::function<void(std::span<const Field>, std::vector<Value>&)>;

  /// Runs a statement from its start to its end; the rows of a select go to `take`. Gives its
  /// fields.
  std::vector<Field> attempt(std::string_view sql, const RowTaker& take);
  std::vector<Field> run(std::string_view sql, const RowTaker& take);
  /// Readies a statement to run now. The values must stand while it runs.
  std::vector<tsql::StoredValue> bind(embedded::Statement& statement,
                                      const tsql::Compiled& compiled,
                                      const tsql::Normalized& literals);
  std::vector<Field> select(embedded::CachedStatement& statement, const tsql::Normalized& literals,
                            const RowTaker& take);
  void change(embedded::CachedStatement& statement, const tsql::Normalized& literals);
  void insert_from_select(embedded::CachedStatement& statement, const tsql::Normalized& literals);
  void define(const tsql::Compiled& compiled, std::string_view sql);
  void checkpoint_if_due();

  std::filesystem::path file_;
  std::chrono::seconds timeout_{30};
  KeepGoing keep_going_;
  std::unique_ptr<OpenFile> open_;
};

}  // namespace tela
