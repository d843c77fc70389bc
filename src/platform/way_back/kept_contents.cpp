#include "platform/way_back/kept_contents.h"

#include <array>
#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "platform/csv/csv_record.h"

namespace tela {
namespace {

constexpr std::string_view header = "table,change,key,written,file,after,rows\n";
constexpr std::size_t header_fields = 7;
constexpr std::array<std::string_view, 3> change_words{"removed", "changed", "added"};

// Names of columns in one field; none holds a blank.
std::string joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : " ") + name;
  return list;
}

std::vector<std::string> parted(std::string_view list) {
  std::vector<std::string> names;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(' '), list.size());
    if (end > 0) names.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return names;
}

KeptTable::Change change_of(std::string_view word) {
  for (std::size_t i = 0; i < change_words.size(); ++i)
    if (change_words[i] == word) return static_cast<KeptTable::Change>(i);
  throw std::runtime_error("'" + std::string(word) + "' is no change of rows");
}

std::int64_t count_of(std::string_view text) {
  std::int64_t count = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (problem != std::errc{} || end != text.data() + text.size())
    throw std::runtime_error("'" + std::string(text) + "' is no number of rows");
  return count;
}

KeptTable table_of(const CsvRecord& record) {
  if (!record.problem.empty()) throw std::runtime_error(record.problem);
  if (record.fields.size() != header_fields) throw std::runtime_error("it has other columns");
  const auto text = [&](std::size_t position) { return record.fields[position].text; };
  return {text(0), change_of(text(1)), parted(text(2)), parted(text(3)), text(4),
          text(5), count_of(text(6))};
}

}  // namespace

std::string contents_text(const std::vector<KeptTable>& tables) {
  std::string text(header);
  for (const KeptTable& table : tables) {
    for (const std::string& field :
         {table.table, std::string(change_words.at(static_cast<std::size_t>(table.change))),
          joined(table.key), joined(table.written), table.file, table.after_file}) {
      append_csv_text(text, field);
      text += ',';
    }
    text += std::to_string(table.rows) + '\n';
  }
  return text;
}

std::vector<KeptTable> read_contents(const std::filesystem::path& part) {
  const std::filesystem::path file = part / kept_contents_file;
  std::ifstream input(file, std::ios::binary);
  if (!input) throw std::runtime_error(file.string() + " cannot be read");
  CsvReader reader(input);
  CsvRecord record;
  reader.read(record);
  std::vector<KeptTable> tables;
  while (reader.read(record)) {
    try {
      tables.push_back(table_of(record));
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(file.string() + ", line " + std::to_string(record.line) + ": " +
                               error.what());
    }
  }
  return tables;
}

}  // namespace tela
