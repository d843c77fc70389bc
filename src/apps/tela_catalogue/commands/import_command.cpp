#include <fstream>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/commands.h"
#include "apps/tela_catalogue/commands/table_columns.h"
#include "platform/csv/csv_value.h"
#include "platform/embedded/embedded_catalogue.h"
#include "platform/text/strings.h"

namespace tela {
namespace {

// A CSV file and the columns of a table that its header names.
class TableFile {
 public:
  TableFile(const std::filesystem::path& file, const tsql::TableInfo& table)
      : input_(file, std::ios::binary), reader_(input_) {
    if (!input_) throw std::runtime_error(file.string() + " cannot be read");
    if (!reader_.read(record_)) throw std::runtime_error(file.string() + " has no header line");
    if (!record_.problem.empty()) throw std::runtime_error(line_text() + record_.problem);
    for (const CsvField& field : record_.fields) add_column(field.text, table);
  }

  const std::vector<std::string>& columns() const { return names_; }

  /// The next row; false at the end. What is wrong with its line is appended to `problems`.
  bool read(std::vector<Value>& row, std::string& problems) {
    if (!reader_.read(record_)) return false;
    row.clear();
    problems = record_.problem;
    if (problems.empty() && record_.fields.size() != names_.size()) {
      problems = std::to_string(record_.fields.size()) + " fields instead of " +
                 std::to_string(names_.size());
    }
    if (problems.empty()) read_values(row, problems);
    return true;
  }

  std::string line_text() const { return "line " + std::to_string(record_.line) + ": "; }

 private:
  void add_column(std::string_view given, const tsql::TableInfo& table) {
    const std::string_view name = trimmed(given);
    const tsql::ColumnInfo* column = find_column(table, name);
    if (column == nullptr) {
      throw std::runtime_error(line_text() + table.name + " has no column '" + std::string(name) +
                               "'");
    }
    for (const std::string& other : names_) {
      if (other == column->name) {
        throw std::runtime_error(line_text() + "column " + other + " is named twice");
      }
    }
    names_.push_back(column->name);
    types_.push_back(csv_column(column->type));
  }

  void read_values(std::vector<Value>& row, std::string& problems) const {
    for (std::size_t i = 0; i < names_.size(); ++i) {
      try {
        row.push_back(csv_value(record_.fields[i], types_[i]));
      } catch (const CsvValueError& error) {
        if (!problems.empty()) problems += "; ";
        problems += names_[i] + ": " + error.what();
      }
    }
  }

  std::ifstream input_;
  CsvReader reader_;
  CsvRecord record_;
  std::vector<std::string> names_;
  std::vector<CsvColumn> types_;
};

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
  TableFile first_reading(file, info);
  refuse_bad_lines(first_reading, messages);
  TableFile second_reading(file, info);
  const std::int64_t rows = add_rows(second_reading, target, info.name, messages);
  messages.say("imported " + std::to_string(rows) + " rows into " + std::string(table));
}

}  // namespace tela
