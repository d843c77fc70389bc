#include <chrono>
#include <map>
#include <string>

#include "apps/tela_catalogue/commands/commands.h"
#include "platform/catalogue_texts/catalogue_texts.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

// Hands the rows to the catalogue, one inserter a table.
class CatalogueSink : public demo::RowSink {
 public:
  explicit CatalogueSink(EmbeddedCatalogue& catalogue) : catalogue_(catalogue) {}

  void add(std::string_view table, const demo::Row& row) override {
    auto found = inserters_.find(table);
    if (found == inserters_.end()) found = inserters_.emplace(table, inserter(table)).first;
    found->second.add(row);
  }

 private:
  BulkInserter inserter(std::string_view table) {
    const tsql::TableInfo* info = catalogue_.find_table(table);
    if (info == nullptr) throw std::logic_error("the demo fills no table " + std::string(table));
    std::vector<std::string> columns;
    for (const tsql::ColumnInfo& column : info->columns) columns.push_back(column.name);
    return catalogue_.inserter(table, columns);
  }

  EmbeddedCatalogue& catalogue_;
  std::map<std::string, BulkInserter, std::less<>> inserters_;
};

demo::DemoSummary fill(EmbeddedCatalogue& catalogue, const demo::DemoOptions& options,
                       Messages& messages) {
  CatalogueSink sink(catalogue);
  Connection& connection = catalogue.connection();
  connection.begin_trans();
  const auto day_done = [&](int day) {
    connection.commit_trans();
    connection.begin_trans();
    messages.progress([&](std::ostream& out) { out << "day " << day << " of " << options.days; });
  };
  const demo::DemoSummary summary = demo::make_demo(options, sink, day_done);
  connection.execute("update bill_no set billno=" + std::to_string(summary.bills));
  connection.commit_trans();
  return summary;
}

}  // namespace

void make_demo_catalogue(const fs::path& catalogue, const demo::DemoOptions& options,
                         Messages& messages) {
  if (catalogue.has_parent_path()) fs::create_directories(catalogue.parent_path());
  // The indexes come last: built once over all rows they cost a fraction of what each row would.
  const auto scripts = catalogue_scripts();
  demo::DemoSummary summary;
  create_embedded_catalogue(
      catalogue, scripts.first(scripts.size() - 1), [&](EmbeddedCatalogue& made) {
        made.connection().set_command_timeout(std::chrono::hours(1));  // an index over all lines
        summary = fill(made, options, messages);
        messages.progress([](std::ostream& out) { out << "indexes"; });
        made.run_script(scripts.back());
      });
  messages.say("created " + catalogue.string() + ": " + std::to_string(summary.bills) +
               " bills with " + std::to_string(summary.lines) + " lines");
}

}  // namespace tela
