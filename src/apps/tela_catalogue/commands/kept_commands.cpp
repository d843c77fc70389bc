#include "apps/tela_catalogue/commands/kept_commands.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "apps/tela_catalogue/commands/table_restore.h"
#include "platform/way_back/kept_contents.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

/// The parts of an action in their order; none if the folder is no action's.
std::vector<fs::path> parts_of(const fs::path& action) {
  std::vector<fs::path> parts;
  for (int number = 1; fs::is_directory(action / std::to_string(number)); ++number)
    parts.push_back(action / std::to_string(number));
  return parts;
}

std::vector<fs::path> actions_in(const fs::path& folder) {
  std::vector<fs::path> actions;
  if (!fs::is_directory(folder)) return actions;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    if (entry.path().extension() != unfinished_kept_rows && !parts_of(entry.path()).empty())
      actions.push_back(entry.path());
  std::sort(actions.begin(), actions.end());
  return actions;
}

std::string_view word_of(KeptTable::Change change) {
  switch (change) {
    case KeptTable::Change::removed:
      return "removed";
    case KeptTable::Change::changed:
      return "changed";
    case KeptTable::Change::added:
      break;
  }
  return "added";
}

std::string rows_text(std::int64_t rows) {
  return std::to_string(rows) + (rows == 1 ? " row" : " rows");
}

std::string description(const KeptTable& table) {
  return table.table + ": " + rows_text(table.rows) + ' ' + std::string(word_of(table.change));
}

// A damaged part does not hide the others.
void list_part(const fs::path& part, std::ostream& out) {
  try {
    for (const KeptTable& table : read_contents(part)) out << "  " << description(table) << '\n';
  } catch (const std::runtime_error& error) {
    out << "  " << error.what() << '\n';
  }
}

/// Brings back one table's rows. False if they are there already.
bool restore_table(Connection& catalogue, const fs::path& part, const KeptTable& kept,
                   Messages& messages) {
  const TableRestore table(catalogue, part, kept);
  switch (table.standing()) {
    case Standing::as_before:
      return false;
    case Standing::as_left:
      table.run(messages);
      return true;
    case Standing::rewritten:
      break;
  }
  throw std::runtime_error(kept.table + " has been written to since: some rows are as before, " +
                           "others are not");
}

/// Brings back what one transaction did: its last statement first. False if nothing was to do.
bool restore_part(Connection& catalogue, const fs::path& part, std::vector<std::string>& done,
                  Messages& messages) {
  const std::vector<KeptTable> tables = read_contents(part);
  bool is_restored = false;
  for (auto kept = tables.rbegin(); kept != tables.rend(); ++kept) {
    const bool was_to_do = restore_table(catalogue, part, *kept, messages);
    done.push_back(description(*kept) + (was_to_do ? ", brought back" : ", as before already"));
    is_restored |= was_to_do;
  }
  return is_restored;
}

}  // namespace

void list_kept(const fs::path& folder, std::ostream& out) {
  for (const fs::path& action : actions_in(folder)) {
    out << action.filename().string() << '\n';
    for (const fs::path& part : parts_of(action)) list_part(part, out);
  }
}

void restore_kept(Connection& catalogue, const fs::path& folder, std::string_view name,
                  Messages& messages) {
  const fs::path action = folder / fs::path(name).filename();
  const std::vector<fs::path> parts = parts_of(action);
  if (parts.empty()) throw std::runtime_error("no rows are kept in " + action.string());
  bool is_restored = false;
  std::vector<std::string> done;
  catalogue.begin_trans();
  try {
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
      is_restored |= restore_part(catalogue, *part, done, messages);
    catalogue.commit_trans();
  } catch (const std::exception& error) {
    if (catalogue.in_transaction()) catalogue.rollback_trans();
    throw std::runtime_error("nothing is brought back: " + std::string(error.what()));
  }
  for (const std::string& line : done) messages.say(line);
  messages.say(is_restored ? "brought back " + std::string(name)
                           : "nothing was to do: all rows are as they were before the action");
}

}  // namespace tela
