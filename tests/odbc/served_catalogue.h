// A server whose rows come from an embedded catalogue, so that what works on the one can be tried
// on the other.
#pragma once

#include <filesystem>
#include <memory>

#include "odbc/tds_server.h"
#include "platform/database/database_client.h"

namespace tela::testing {

class ServedCatalogue {
 public:
  explicit ServedCatalogue(const std::filesystem::path& file);

  /// The catalogue itself, not over the server.
  Connection& behind() { return *behind_; }
  TdsServer& server() { return server_; }

 private:
  Reply answer(const std::string& sql);
  void follow(const std::string& change);

  std::unique_ptr<Connection> behind_;
  TdsServer server_;
};

}  // namespace tela::testing
