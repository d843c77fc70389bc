// A catalogue for the report tests: every query gives the same rows, and what was asked is kept.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/database_client.h"

namespace tela {

/// What the connections of a test were asked.
struct FakeCatalogue {
  RowSet rows;
  std::string opened;
  std::vector<std::string> queries;

  ConnectionFactory factory();
};

class FakeConnection : public Connection {
 public:
  explicit FakeConnection(FakeCatalogue& catalogue) : catalogue_(catalogue) {}

  void open(std::string_view connection_string) override { catalogue_.opened = connection_string; }
  void set_cursor_location(CursorLocation) override {}
  void set_command_timeout(std::chrono::seconds) override {}
  RowSet execute(std::string_view sql) override {
    catalogue_.queries.emplace_back(sql);
    return catalogue_.rows;
  }
  void begin_trans() override {}
  void commit_trans() override {}
  void rollback_trans() override {}
  bool in_transaction() const override { return false; }

 private:
  FakeCatalogue& catalogue_;
};

inline ConnectionFactory FakeCatalogue::factory() {
  return [this] { return std::make_unique<FakeConnection>(*this); };
}

}  // namespace tela
