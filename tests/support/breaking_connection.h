// A connection that breaks at a chosen call: as a lost server does, or a program that is killed.
#pragma once

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/database/database_client.h"
#include "shell/app_state.h"

namespace tela::testing {

/// Hands every call on, until as many have gone through as are allowed. From then on each fails
/// ahead of its work, but for the roll-back.
class BreakingConnection : public Connection {
 public:
  explicit BreakingConnection(std::unique_ptr<Connection> inner) : inner_(std::move(inner)) {}

  /// Puts one around the connection of a program. It lives as long as the program's connection.
  static BreakingConnection& around(AppState& app) {
    auto made = std::make_unique<BreakingConnection>(std::move(app.Con));
    BreakingConnection& connection = *made;
    app.Con = std::move(made);
    return connection;
  }

  static constexpr int kUnlimited = std::numeric_limits<int>::max();
  /// Lets so many more calls through: statements, begins and commits.
  void allow(int calls) { left_ = calls; }
  /// Every statement that holds this text fails.
  void refuse(std::string text) { refused_ = std::move(text); }
  /// Is told of each call ahead of it, from now on.
  void watch(std::function<void()> ahead_of_call) { watch_ = std::move(ahead_of_call); }
  /// The statements that went through since the last call.
  std::vector<std::string> take_statements() { return std::exchange(statements_, {}); }

  void open(std::string_view connection_string) override { inner_->open(connection_string); }
  void set_cursor_location(CursorLocation location) override {
    inner_->set_cursor_location(location);
  }
  void set_command_timeout(std::chrono::seconds timeout) override {
    inner_->set_command_timeout(timeout);
  }
  RowSet execute(std::string_view sql) override {
    count(sql);
    return inner_->execute(sql);
  }
  void read_each(std::string_view sql, const RowVisitor& visit) override {
    count(sql);
    inner_->read_each(sql, visit);
  }
  void begin_trans() override {
    count("begin");
    inner_->begin_trans();
  }
  void commit_trans() override {
    count("commit");
    inner_->commit_trans();
  }
  void rollback_trans() override { inner_->rollback_trans(); }
  bool in_transaction() const override { return inner_->in_transaction(); }

 private:
  void count(std::string_view call) {
    if (left_ == 0 || (!refused_.empty() && call.find(refused_) != call.npos))
      throw DatabaseError(DatabaseError::Kind::connection, "the connection is lost");
    if (watch_) watch_();
    --left_;
    statements_.emplace_back(call);
  }

  std::unique_ptr<Connection> inner_;
  int left_ = kUnlimited;
  std::string refused_;
  std::function<void()> watch_;
  std::vector<std::string> statements_;
};

}  // namespace tela::testing
