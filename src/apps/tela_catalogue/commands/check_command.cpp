#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/commands.h"
#include "apps/tela_catalogue/commands/data_checks.h"
#include "apps/tela_catalogue/commands/settings_tables.h"
#include "apps/tela_catalogue/commands/table_columns.h"
#include "platform/catalogue_texts/catalogue_texts.h"
#include "platform/csv/csv_value.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

// An empty catalogue beside which another is held.
class ReferenceCatalogue {
 public:
  ReferenceCatalogue() : folder_(make_folder()), catalogue_(make_catalogue(folder_)) {}
  ~ReferenceCatalogue() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  ReferenceCatalogue(const ReferenceCatalogue&) = delete;
  ReferenceCatalogue& operator=(const ReferenceCatalogue&) = delete;

  const EmbeddedCatalogue& catalogue() const { return catalogue_; }

 private:
  static fs::path make_folder() {
    std::string name = (fs::temp_directory_path() / "tela_check.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
      throw std::runtime_error("no folder " + name + " can be made");
    return name;
  }

  static EmbeddedCatalogue make_catalogue(const fs::path& folder) {
    const fs::path file = folder / "reference.db";
    create_embedded_catalogue(file, catalogue_scripts());
    return EmbeddedCatalogue(file);
  }

  fs::path folder_;
  EmbeddedCatalogue catalogue_;
};

std::vector<std::string> missing_columns(const EmbeddedCatalogue& catalogue) {
  const ReferenceCatalogue reference;
  std::vector<std::string> missing;
  for (const std::string& name : reference.catalogue().table_names()) {
    const tsql::TableInfo* table = catalogue.find_table(name);
    if (table == nullptr) {
      missing.push_back("table " + name + " is missing");
      continue;
    }
    for (const tsql::ColumnInfo& column : require_table(reference.catalogue(), name).columns) {
      if (find_column(*table, column.name) != nullptr) continue;
      missing.push_back("column " + name + "." + column.name + " is missing");
    }
  }
  return missing;
}

std::vector<std::string> missing_start_rows(Connection& connection) {
  std::vector<std::string> missing;
  for (const std::string_view table : settings_tables) {
    const RowSet rows = connection.execute("select count(*) from " + std::string(table));
    if (rows.rows.at(0).at(0) == Value(std::int64_t{1})) continue;
    missing.push_back(std::string(table) + " does not hold exactly one row");
  }
  return missing;
}

// What the columns of an oddity hold, as a CSV file would have it.
std::string name_of(const std::vector<Value>& row) {
  std::string name;
  for (const Value& value : row) {
    if (!name.empty()) name += ' ';
    if (is_null(value)) name += "null";
    append_csv_value(name, value);
  }
  return name;
}

void tell_oddities(const DataCheck& check, const RowSet& found, Messages& messages) {
  if (found.rows.empty()) return;
  static constexpr std::size_t shown = 5;
  const bool more_than_counted = found.rows.size() == static_cast<std::size_t>(most_examples);
  std::string text = "warning: " + std::string(check.finding) + ": ";
  text += std::to_string(found.rows.size()) + (more_than_counted ? " or more (" : " (");
  for (std::size_t i = 0; i < std::min(shown, found.rows.size()); ++i) {
    text += (i == 0 ? "" : ", ") + name_of(found.rows[i]);
  }
  text += found.rows.size() > shown ? ", ...)" : ")";
  messages.say(text);
}

void check_data(Connection& connection, Messages& messages) {
  for (const DataCheck& check : data_checks()) {
    messages.progress([&](std::ostream& out) { out << "looking for " << check.finding; });
    tell_oddities(check, connection.execute(check.statement), messages);
  }
}

bool tell_damage(const std::vector<std::string>& damage, Messages& messages) {
  for (const std::string& text : damage) messages.say("damage: " + text);
  return !damage.empty();
}

}  // namespace

bool check_catalogue(const fs::path& catalogue, Messages& messages) {
  EmbeddedCatalogue checked(catalogue);
  checked.connection().set_command_timeout(std::chrono::hours(1));  // whole tables are read
  messages.progress([](std::ostream& out) { out << "reading the whole file"; });
  if (tell_damage(checked.integrity_check(), messages)) return false;
  if (tell_damage(missing_columns(checked), messages)) return false;
  if (tell_damage(missing_start_rows(checked.connection()), messages)) return false;
  check_data(checked.connection(), messages);
  messages.say(catalogue.string() + " is sound");
  return true;
}

}  // namespace tela
