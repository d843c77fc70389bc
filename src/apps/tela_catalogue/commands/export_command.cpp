#include <fstream>
#include <string>

#include "apps/tela_catalogue/commands/commands.h"
#include "apps/tela_catalogue/commands/table_columns.h"
#include "platform/csv/csv_value.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {
namespace {

std::string header_of(const tsql::TableInfo& table) {
  std::string header;
  for (const tsql::ColumnInfo& column : table.columns) {
    if (!header.empty()) header += ',';
    append_csv_text(header, column.name);
  }
  return header + '\n';
}

// Writes what it is given, in large pieces, and notices a full disk.
class OutputFile {
 public:
  explicit OutputFile(const std::filesystem::path& file)
      : name_(file.string()), output_(file, std::ios::binary | std::ios::trunc) {
    require_good();
  }

  void write(std::string_view text) {
    output_ << text;
    require_good();
  }

  void close() {
    output_.close();
    require_good();
  }

 private:
  void require_good() const {
    if (!output_) throw std::runtime_error(name_ + " cannot be written");
  }

  std::string name_;
  std::ofstream output_;
};

}  // namespace

void export_table(const std::filesystem::path& catalogue, std::string_view table,
                  const std::filesystem::path& file, Messages& messages) {
  const EmbeddedCatalogue source(catalogue);
  const tsql::TableInfo& info = require_table(source, table);
  OutputFile output(file);
  output.write(header_of(info));
  std::int64_t rows = 0;
  std::string line;
  source.read_rows(info.name, [&](std::span<const Value> row) {
    line.clear();
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) line += ',';
      append_csv_value(line, row[i]);
    }
    line += '\n';
    output.write(line);
    if (++rows % 4096 == 0) {
      messages.progress([&](std::ostream& out) { out << rows << " rows written"; });
    }
  });
  output.close();
  messages.say("exported " + std::to_string(rows) + " rows of " + info.name);
}

}  // namespace tela
