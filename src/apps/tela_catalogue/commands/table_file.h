// A CSV file of a table's rows.
#pragma once

#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/csv/csv_record.h"
#include "platform/csv/csv_value.h"

namespace tela {

/// A column that a file may name, and what it takes.
struct TableColumn {
  std::string name;
  CsvColumn type;
};

/// A file whose header names columns of a table, in any order and case. Throws std::runtime_error,
/// with words for the user, if it cannot be read or names a column that is none.
class TableFile {
 public:
  TableFile(const std::filesystem::path& file, std::string_view table,
            std::span<const TableColumn> columns);

  const std::vector<std::string>& columns() const { return names_; }

  /// The next row; false at the end. What is wrong with its line is appended to `problems`.
  bool read(std::vector<Value>& row, std::string& problems);

  std::string line_text() const { return "line " + std::to_string(record_.line) + ": "; }

 private:
  void add_column(std::string_view given, std::string_view table,
                  std::span<const TableColumn> columns);
  void read_values(std::vector<Value>& row, std::string& problems) const;

  std::ifstream input_;
  CsvReader reader_;
  CsvRecord record_;
  std::vector<std::string> names_;
  std::vector<CsvColumn> types_;
};

}  // namespace tela
