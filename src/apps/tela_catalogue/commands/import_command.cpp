#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/commands.h"
#include "apps/tela_catalogue/commands/table_columns.h"
#include "apps/tela_catalogue/commands/table_file.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {
namespace {

std::vector<TableColumn> columns_of(const tsql::TableInfo& table) {
  std::vector<TableColumn> columns;
  for (const tsql::ColumnInfo& column : table.columns)
    columns.push_back({column.name, csv_column(column.type)});
  return columns;
}

void show_progress(std::int64_t rows, std::string_view what, Messages& messages) {
  if (rows % 4096 != 0) return;
  messages.progress([&](std::ostream& out) { out << rows << " rows " << what; });
}

// Names every bad line. Nothing is written meanwhile, so that the tills are not held up.
void refuse_bad_lines(TableFile& file, Messages& messages) {
  std::vector<Value> row;
  std::string problems;
  std::int64_t rows = 0;
  std::int64_t bad = 0;
  while (file.read(row, problems)) {
    show_progress(++rows, "read", messages);
    if (problems.empty()) continue;
    ++bad;
    messages.say(file.line_text() + problems);
  }
  if (bad > 0) {
    throw std::runtime_error(std::to_string(bad) + (bad == 1 ? " line does" : " lines do") +
                             " not fit; nothing is imported");
  }
}

std::int64_t add_rows(TableFile& file, EmbeddedCatalogue& catalogue, std::string_view table,
                      Messages& messages) {
  BulkInserter inserter = catalogue.inserter(table, file.columns());
  catalogue.connection().begin_trans();
  std::vector<Value> row;
  std::string problems;
  std::int64_t rows = 0;
  while (file.read(row, problems)) {
    if (!problems.empty()) throw std::runtime_error(file.line_text() + problems);
    inserter.add(row);
    show_progress(++rows, "imported", messages);
  }
  catalogue.connection().commit_trans();
  return rows;
}

}  // namespace

void import_table(const std::filesystem::path& catalogue, std::string_view table,
                  const std::filesystem::path& file, Messages& messages) {
  if (!std::filesystem::is_regular_file(file)) {
    throw std::runtime_error(file.string() + " is no file");
  }
  EmbeddedCatalogue target(catalogue);
  const tsql::TableInfo& info = require_table(target, table);
  const std::vector<TableColumn> columns = columns_of(info);
  TableFile first_reading(file, info.name, columns);
  refuse_bad_lines(first_reading, messages);
  TableFile second_reading(file, info.name, columns);
  const std::int64_t rows = add_rows(second_reading, target, info.name, messages);
  messages.say("imported " + std::to_string(rows) + " rows into " + std::string(table));
}

}  // namespace tela
