#include "apps/tela_catalogue/commands/arguments.h"

#include <charconv>

#include "platform/text/date_text.h"

namespace tela {
namespace {

struct CommandName {
  std::string_view name;
  CatalogueCommand command;
};
constexpr CommandName commands[] = {
    {"create", CatalogueCommand::create},      {"demo", CatalogueCommand::demo},
    {"import", CatalogueCommand::import_rows}, {"export", CatalogueCommand::export_rows},
    {"check", CatalogueCommand::check},        {"script", CatalogueCommand::script},
    {"copy", CatalogueCommand::copy},          {"workbooks", CatalogueCommand::workbooks},
    {"kept", CatalogueCommand::list_kept},     {"restore", CatalogueCommand::restore},
    {"backup", CatalogueCommand::backup},      {"help", CatalogueCommand::help},
    {"--help", CatalogueCommand::help}};

// The words of a command line that are still to be read.
class Words {
 public:
  explicit Words(std::span<const std::string_view> words) : words_(words) {}

  bool empty() const { return words_.empty(); }
  std::string_view peek() const { return words_.front(); }

  std::string_view take(std::string_view what) {
    if (words_.empty()) throw UsageError(std::string(what) + " is missing");
    const std::string_view word = words_.front();
    words_ = words_.subspan(1);
    return word;
  }

 private:
  std::span<const std::string_view> words_;
};

template <typename Number>
Number read_number(Words& words, std::string_view option, Number smallest, Number largest) {
  const std::string_view word = words.take("the number behind " + std::string(option));
  Number number{};
  const auto [stop, problem] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (problem != std::errc{} || stop != word.data() + word.size() || number < smallest ||
      number > largest) {
    throw UsageError(std::string(option) + " takes a whole number from " +
                     std::to_string(smallest) + " to " + std::to_string(largest) + ", not '" +
                     std::string(word) + "'");
  }
  return number;
}

Date read_last_day(Words& words) {
  const std::string_view word = words.take("the date behind --to");
  const auto date = read_day_first(word);
  if (!date) throw UsageError("--to takes a date dd/mm/yyyy, not '" + std::string(word) + "'");
  return *date;
}

void read_demo_option(Words& words, demo::DemoOptions& demo) {
  const std::string_view option = words.take("an option");
  if (option == "--days") {
    demo.days = read_number(words, option, 1, 36'500);
  } else if (option == "--bills-per-day") {
    demo.bills_per_day = read_number(words, option, 1, 100'000);
  } else if (option == "--items") {
    demo.items = read_number(words, option, 1, 100'000);
  } else if (option == "--seed") {
    demo.seed = read_number<std::uint64_t>(words, option, 0, UINT64_MAX);
  } else if (option == "--to") {
    demo.last_day = read_last_day(words);
  } else {
    throw UsageError("demo has no option '" + std::string(option) + "'");
  }
}

CatalogueCommand read_command(Words& words) {
  const std::string_view word = words.take("the command");
  for (const CommandName& command : commands) {
    if (command.name == word) return command.command;
  }
  throw UsageError("there is no command '" + std::string(word) + "'");
}

}  // namespace

CatalogueArguments parse_arguments(std::span<const std::string_view> given, Date today) {
  Words words(given);
  CatalogueArguments arguments;
  arguments.demo.last_day = today;
  while (!words.empty() && words.peek() == "--root") {
    words.take("--root");
    arguments.root = words.take("the folder behind --root");
  }
  arguments.command = read_command(words);
  if (arguments.command == CatalogueCommand::demo) {
    while (!words.empty()) read_demo_option(words, arguments.demo);
  }
  if (arguments.command == CatalogueCommand::import_rows ||
      arguments.command == CatalogueCommand::export_rows) {
    arguments.table = words.take("the table");
    arguments.file = words.take("the file");
  }
  if (arguments.command == CatalogueCommand::backup) arguments.file = words.take("the file");
  if (arguments.command == CatalogueCommand::restore)
    arguments.kept = words.take("the name of the kept rows");
  if (!words.empty()) throw UsageError("'" + std::string(words.peek()) + "' is not expected here");
  return arguments;
}

std::string_view usage_text() {
  return R"(usage: tela_catalogue [--root DIR] COMMAND

  create                   make an empty catalogue
  demo [OPTION...]         make a catalogue with the trade of an invented supermarket
    --days N                 days of trade (60)
    --bills-per-day N        bills on an average day (300)
    --items N                items on sale (800)
    --seed N                 another shop for each number (1)
    --to dd/mm/yyyy          the last day (today)
  import TABLE FILE.csv    add the rows of a file to a table
  export TABLE FILE.csv    write the rows of a table to a file
  check                    look for damage, and for what looks wrong in the data
  backup FILE.db           write a copy of the catalogue as it stands; the shop may stay open
  kept                     list the rows that actions removed or rewrote
  restore NAME             bring back what one of these actions removed or rewrote
  script                   write the T-SQL that makes an empty catalogue on a server
  copy                     copy the catalogue to the server that TelaData.odbc beside it names
  workbooks                make the empty workbooks that the Excel buttons add sheets to, by
                           LibreOffice; those that are there stay as they are
  help                     print this

The catalogue is TelaData.db in DIR, else in $TELA_ROOT, else in $XDG_DATA_HOME/tela or
~/.local/share/tela.
)";
}

}  // namespace tela
