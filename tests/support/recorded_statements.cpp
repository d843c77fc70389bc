#include "support/recorded_statements.h"

#include <stdexcept>
#include <utility>

#include "embedded/statement_script.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela::testing {
namespace {

/// Passes everything on to another connection and notes its statements.
class RecordingConnection : public Connection {
 public:
  RecordingConnection(std::unique_ptr<Connection> connection, std::vector<RecordedStatement>& notes)
      : connection_(std::move(connection)), notes_(notes) {}

  void open(std::string_view text) override { connection_->open(text); }
  void set_cursor_location(CursorLocation location) override {
    connection_->set_cursor_location(location);
  }
  void set_command_timeout(std::chrono::seconds timeout) override {
    connection_->set_command_timeout(timeout);
  }
  RowSet execute(std::string_view sql) override {
    const std::size_t note = notes_.size();
    notes_.push_back({std::string(sql), {}, {}});
    try {
      RowSet rows = connection_->execute(sql);
      notes_[note].rows = test::row_texts(rows);
      return rows;
    } catch (const DatabaseError& error) {
      notes_[note].error = error.what();
      throw;
    }
  }
  void begin_trans() override { connection_->begin_trans(); }
  void commit_trans() override { connection_->commit_trans(); }
  void rollback_trans() override { connection_->rollback_trans(); }
  bool in_transaction() const override { return connection_->in_transaction(); }

 private:
  std::unique_ptr<Connection> connection_;
  std::vector<RecordedStatement>& notes_;
};

}  // namespace

RecordedShop::RecordedShop() {
  const auto filling = make_embedded_connection(shop_.paths().embedded_catalogue("TelaData"));
  filling->open({});
  for (const auto& statement : test::read_script("rows.txt")) filling->execute(statement.sql);
  shop_.platform().make_connection = [this, make = shop_.platform().make_connection] {
    return std::make_unique<RecordingConnection>(make(), recorded_);
  };
}

std::vector<RecordedStatement> RecordedShop::run(const std::string& script) {
  recorded_.clear();
  for (const std::string& printed : shop_.run(script))
    if (printed.starts_with("{\"error\"")) throw std::runtime_error(printed);
  return std::exchange(recorded_, {});
}

void RecordedShop::execute(std::string_view sql) {
  try {
    shop_.state().Con->execute(sql);
  } catch (const DatabaseError&) {
    // A script of statements holds some that fail.
  }
}

std::string screen_statement(const std::string& script, std::string_view start) {
  for (const RecordedStatement& statement : RecordedShop().run(script))
    if (statement.sql.starts_with(start)) return statement.sql;
  throw std::runtime_error("no statement begins with " + std::string(start) + ": " + script);
}

}  // namespace tela::testing
