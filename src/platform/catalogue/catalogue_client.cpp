#include "platform/catalogue/catalogue_client.h"

#include <optional>
#include <utility>

#include "platform/embedded/embedded_catalogue.h"
#include "platform/odbc/connection_text.h"
#include "platform/odbc/odbc_connection.h"
#include "platform/odbc/server_file.h"

namespace tela {
namespace {

using Kind = DatabaseError::Kind;

/// A connection whose engine is chosen when it opens.
class CatalogueConnection : public Connection {
 public:
  explicit CatalogueConnection(Paths paths) : paths_(std::move(paths)) {}

  void open(std::string_view connection_string) override {
    if (engine_) return engine_->open(connection_string);
    const std::string catalogue = odbc::ConnectionText(connection_string).value("Initial Catalog");
    if (catalogue.empty())
      throw DatabaseError(Kind::connection, "The connection string names no catalogue.");
    auto engine = choose_engine(catalogue);
    if (timeout_) engine->set_command_timeout(*timeout_);
    if (keep_going_) engine->set_keep_going(keep_going_);
    engine->open(connection_string);
    if (location_) engine->set_cursor_location(*location_);
    engine_ = std::move(engine);
  }

  void set_cursor_location(CursorLocation location) override {
    location_ = location;
    if (engine_) engine_->set_cursor_location(location);
  }

  void set_command_timeout(std::chrono::seconds timeout) override {
    timeout_ = timeout;
    if (engine_) engine_->set_command_timeout(timeout);
  }

  void set_keep_going(const KeepGoing& keep_going) override {
    keep_going_ = keep_going;
    if (engine_) engine_->set_keep_going(keep_going_);
  }

  RowSet execute(std::string_view sql) override { return opened().execute(sql); }
  void read_each(std::string_view sql, const RowVisitor& visit) override {
    opened().read_each(sql, visit);
  }
  void begin_trans() override { opened().begin_trans(); }
  void commit_trans() override { opened().commit_trans(); }
  void rollback_trans() override { opened().rollback_trans(); }
  bool in_transaction() const override { return engine_ && engine_->in_transaction(); }

 private:
  std::unique_ptr<Connection> choose_engine(const std::string& catalogue) const {
    const auto server = paths_.server_catalogue(catalogue);
    if (std::filesystem::exists(server)) return make_odbc_connection(read_server_file(server));
    return make_embedded_connection(paths_.embedded_catalogue(catalogue));
  }

  Connection& opened() const {
    if (!engine_) throw DatabaseError(Kind::connection, "The connection is closed.");
    return *engine_;
  }

  Paths paths_;
  std::unique_ptr<Connection> engine_;
  std::optional<std::chrono::seconds> timeout_;
  std::optional<CursorLocation> location_;
  KeepGoing keep_going_;
};

}  // namespace

ConnectionFactory make_catalogue_factory(const Paths& paths) {
  return [paths] { return std::make_unique<CatalogueConnection>(paths); };
}

}  // namespace tela
