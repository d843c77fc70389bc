// The catalogue's tables and procedures as the T-SQL front end asks for them, read from SQLite's
// own schema, which keeps the declared types.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/embedded/sqlite_handles.h"
#include "platform/tsql/compiler.h"

namespace tela::embedded {

/// Creates the table that holds the stored procedures' texts, unless it is there.
void create_procedure_store(Database& database);

class CatalogueSchema : public tsql::Schema {
 public:
  explicit CatalogueSchema(const Database& database);

  const tsql::TableInfo* find_table(std::string_view name) const override;
  std::optional<std::string> find_procedure(std::string_view name) const override;

  /// The permanent tables in alphabetical order, without those that are the engine's own.
  std::vector<std::string> table_names() const;

  /// Keeps a procedure's text under its name, which must be free.
  void store_procedure(const std::string& name, std::string_view text);
  void remove_procedure(const std::string& name);

  /// Forgets what it knows if another connection changed the schema meanwhile; true if one did.
  bool notice_changes();
  /// Forgets what it knows: this connection changed the schema.
  void forget();

 private:
  std::unique_ptr<tsql::TableInfo> read_table(std::string_view name) const;
  bool has_procedure_store() const;

  const Database& database_;
  mutable Statement version_;
  std::int64_t known_version_;
  /// By name in small letters; null for a name that is no table's.
  mutable std::map<std::string, std::unique_ptr<tsql::TableInfo>, std::less<>> tables_;
};

}  // namespace tela::embedded
