#include "platform/embedded/catalogue_schema.h"

#include <algorithm>
#include <utility>

#include "platform/text/ascii.h"

namespace tela::embedded {
namespace {

// Names with this start are the engine's own and no statement sees them.
constexpr const char* own_tables = "tela\\_%";

std::string in_small_letters(std::string_view name) {
  std::string small(name);
  std::transform(small.begin(), small.end(), small.begin(), to_lower);
  return small;
}

/// A type that the front end does not know (the tills may keep columns of their own) is left open:
/// such a column gives what is stored.
tsql::Type declared_type(const std::string& name) {
  try {
    return tsql::parse_type_name(name);
  } catch (const tsql::CompileError&) {
    return {};
  }
}

}  // namespace

void create_procedure_store(Database& database) {
  database.run(
      "CREATE TABLE IF NOT EXISTS tela_procedures("
      "name TEXT PRIMARY KEY COLLATE NOCASE, text TEXT NOT NULL) WITHOUT ROWID");
}

CatalogueSchema::CatalogueSchema(const Database& database)
    : database_(database), version_(database, "PRAGMA main.schema_version"), known_version_(-1) {}

const tsql::TableInfo* CatalogueSchema::find_table(std::string_view name) const {
  std::string key = in_small_letters(name);
  auto found = tables_.find(key);
  if (found == tables_.end()) found = tables_.emplace(std::move(key), read_table(name)).first;
  return found->second.get();
}

std::unique_ptr<tsql::TableInfo> CatalogueSchema::read_table(std::string_view name) const {
  const bool temporary = name.starts_with('#');
  Statement table(database_, temporary
                                 ? "SELECT name FROM temp.sqlite_schema WHERE type = 'table' AND "
                                   "name = ?1 COLLATE NOCASE"
                                 : "SELECT name FROM main.sqlite_schema WHERE type = 'table' AND "
                                   "name = ?1 COLLATE NOCASE AND name NOT LIKE ?2 ESCAPE '\\'");
  table.bind(1, name);
  if (!temporary) table.bind(2, std::string_view(own_tables));
  if (!table.step()) return nullptr;

  auto info = std::make_unique<tsql::TableInfo>();
  info->name = table.text(0);
  Statement columns(database_,
                    "SELECT name, type, EXISTS (SELECT 1 FROM pragma_index_list(?1, ?2) AS i JOIN "
                    "pragma_index_info(i.name, ?2) AS k WHERE k.seqno = 0 AND k.name = c.name) "
                    "FROM pragma_table_info(?1, ?2) AS c");
  columns.bind(1, info->name);
  columns.bind(2, std::string_view(temporary ? "temp" : "main"));
  while (columns.step()) {
    info->columns.push_back(
        {columns.text(0), declared_type(columns.text(1)), columns.number(2) != 0});
  }
  return info;
}

std::vector<std::string> CatalogueSchema::table_names() const {
  Statement tables(database_,
                   "SELECT name FROM main.sqlite_schema WHERE type = 'table' AND name NOT LIKE "
                   "'sqlite\\_%' ESCAPE '\\' AND name NOT LIKE ?1 ESCAPE '\\' "
                   "ORDER BY name COLLATE NOCASE");
  tables.bind(1, std::string_view(own_tables));
  std::vector<std::string> names;
  while (tables.step()) names.push_back(tables.text(0));
  return names;
}

bool CatalogueSchema::has_procedure_store() const {
  return database_.number("SELECT count(*) FROM main.sqlite_schema WHERE name='tela_procedures'") >
         0;
}

std::optional<std::string> CatalogueSchema::find_procedure(std::string_view name) const {
  if (!has_procedure_store()) return std::nullopt;
  Statement procedure(database_, "SELECT text FROM main.tela_procedures WHERE name = ?1");
  procedure.bind(1, name);
  if (!procedure.step()) return std::nullopt;
  return procedure.text(0);
}

void CatalogueSchema::store_procedure(const std::string& name, std::string_view text) {
  if (find_procedure(name))
    throw DatabaseError(DatabaseError::Kind::value,
                        "There is already an object named '" + name + "' in the database.");
  Statement insert(database_, "INSERT INTO main.tela_procedures VALUES(?1, ?2)");
  insert.bind(1, name);
  insert.bind(2, text);
  insert.step();
}

void CatalogueSchema::remove_procedure(const std::string& name) {
  Statement remove(database_, "DELETE FROM main.tela_procedures WHERE name = ?1");
  remove.bind(1, name);
  remove.step();
}

bool CatalogueSchema::notice_changes() {
  const Run run(version_);
  version_.step();
  if (const std::int64_t version = version_.number(0); version != known_version_) {
    tables_.clear();
    known_version_ = version;
    return true;
  }
  return false;
}

void CatalogueSchema::forget() {
  tables_.clear();
}

}  // namespace tela::embedded
