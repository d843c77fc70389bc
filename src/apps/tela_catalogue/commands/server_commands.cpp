#include "apps/tela_catalogue/commands/server_commands.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "apps/tela_catalogue/commands/insert_text.h"
#include "apps/tela_catalogue/commands/settings_tables.h"
#include "platform/catalogue_texts/catalogue_texts.h"
#include "platform/odbc/odbc_connection.h"
#include "platform/odbc/server_file.h"
#include "platform/text/ascii.h"
#include "platform/tsql/compiler.h"

namespace tela {
namespace {

/// The end of a large table's transaction may take its time.
constexpr std::chrono::minutes kCopyTimeout{30};

/// One table's part of the copy.
struct TableCopy {
  const tsql::TableInfo* table = nullptr;
  std::int64_t rows = 0;       ///< in the source
  bool empties_first = false;  ///< the server's start-up row gives way
};

bool is_settings_table(std::string_view name) {
  return std::any_of(
      settings_tables.begin(), settings_tables.end(),
      [&](std::string_view settings) { return equal_ignoring_case(settings, name); });
}

std::int64_t count_rows(Connection& connection, const std::string& table) {
  const RowSet rows = connection.execute("select count(*) from " + table);
  return std::get<std::int64_t>(rows.rows.at(0).at(0));
}

std::int64_t count_on_server(Connection& server, const std::string& table) {
  try {
    return count_rows(server, table);
  } catch (const DatabaseError& error) {
    if (error.kind() != DatabaseError::Kind::unknown_name) throw;
    throw std::runtime_error("the server has no table " + table +
                             "; run there what tela_catalogue script writes");
  }
}

/// What is to be copied. Nothing is written before every table has been looked at.
std::vector<TableCopy> plan_copy(EmbeddedCatalogue& source, Connection& server,
                                 Messages& messages) {
  std::vector<TableCopy> plan;
  for (const std::string& name : source.table_names()) {
    const std::int64_t rows = count_rows(source.connection(), name);
    const std::int64_t there = count_on_server(server, name);
    const bool start_row = there == 1 && is_settings_table(name);
    if (start_row || (there == 0 && rows > 0)) {
      plan.push_back({source.find_table(name), rows, start_row});
    } else if (there != rows) {
      throw std::runtime_error(name + " on the server holds " + std::to_string(there) +
                               " rows of its own; nothing is copied");
    } else if (rows > 0) {
      messages.say(name + ": all " + std::to_string(rows) + " rows are there already");
    }
  }
  return plan;
}

void send_rows(const EmbeddedCatalogue& source, Connection& server, const TableCopy& copy,
               Messages& messages) {
  std::vector<std::string> columns;
  for (const tsql::ColumnInfo& column : copy.table->columns) columns.push_back(column.name);
  InsertText insert(copy.table->name, columns);
  std::int64_t sent = 0;
  const auto send = [&] {
    server.execute(insert.take());
    messages.progress([&](std::ostream& out) {
      out << copy.table->name << ": " << sent << " of " << copy.rows << " rows";
    });
  };
  source.read_rows(copy.table->name, [&](std::span<const Value> row) {
    insert.add(row);
    ++sent;
    if (insert.full()) send();
  });
  if (!insert.empty()) send();
}

void copy_table(const EmbeddedCatalogue& source, Connection& server, const TableCopy& copy,
                Messages& messages) {
  server.begin_trans();
  try {
    if (copy.empties_first) server.execute("delete from " + copy.table->name);
    send_rows(source, server, copy, messages);
    server.commit_trans();
  } catch (const DatabaseError& error) {
    if (server.in_transaction()) server.rollback_trans();
    throw std::runtime_error(copy.table->name + ": " + error.what());
  }
  messages.say(copy.table->name + ": " + std::to_string(copy.rows) + " rows");
}

}  // namespace

void write_server_script(std::ostream& out) {
  for (const std::string_view script : catalogue_scripts()) out << script << '\n';
}

void copy_catalogue(const std::filesystem::path& catalogue,
                    const std::filesystem::path& server_file, Messages& messages) {
  EmbeddedCatalogue source(catalogue);
  const auto server = make_odbc_connection(read_server_file(server_file));
  server->set_command_timeout(kCopyTimeout);
  server->open("Initial Catalog=TelaData");
  copy_to_server(source, *server, messages);
}

void copy_to_server(EmbeddedCatalogue& source, Connection& server, Messages& messages) {
  for (const TableCopy& copy : plan_copy(source, server, messages))
    copy_table(source, server, copy, messages);
}

}  // namespace tela
