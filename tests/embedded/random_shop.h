// A catalogue with the tables of a script, each filled with random rows, whose statements run with
// either grouping, by one reader or by several.
#pragma once

#include <array>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/embedded/catalogue_schema.h"
#include "platform/embedded/grouping/group_module.h"
#include "platform/embedded/grouping/reading_helpers.h"
#include "platform/embedded/sql_functions.h"
#include "platform/embedded/stored_values.h"
#include "platform/tsql/engine_names.h"
#include "support/temporary_folder.h"

namespace tela::test {

/// Few values a type, so that groups form; one in eight is null.
class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : random_(seed) {}

  tsql::StoredValue operator()(const tsql::Type& type) {
    if (below(8) == 0) return {};
    switch (type.kind) {
      case tsql::TypeKind::text:
        return texts[below(texts.size())];
      case tsql::TypeKind::real:
        return numbers[below(numbers.size())];
      case tsql::TypeKind::date:
        return days[below(days.size())];
      default:
        return static_cast<std::int64_t>(below(4));
    }
  }

 private:
  // Each text in several spellings that are one text, and texts that only look alike.
  static constexpr std::array<const char*, 9> texts{"Soap", "SOAP ", "soap  ", "Rice", "rice",
                                                    "",     "  ",    "O'Neil", "SGST"};
  // Some are no days of the calendar: the tills check nothing.
  static constexpr std::array<std::int64_t, 12> days{20240104, 20240105, 20240109, 20240114,
                                                     20240131, 20240132, 20240199, 20240200,
                                                     20240201, 20240215, 20240230, 20240301};
  static constexpr std::array<double, 8> numbers{0,          0.1,  0.2,     2,
                                                 1e6 + 0.01, -0.3, 74.0625, -133.68};

  std::size_t below(std::size_t bound) { return random_() % bound; }

  std::mt19937 random_;
};

class RandomShop {
 public:
  RandomShop(unsigned seed, int rows_a_table)
      : values_(seed), rows_a_table_(rows_a_table), schema_(database_) {
    database_.run("PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF");
    register_sql_functions(database_.handle());
    embedded::create_procedure_store(database_);
  }

  /// From now on the client leaves more groups than these to the engine.
  void keep_in_memory(std::size_t most_groups) {
    embedded::register_groups(database_.handle(), {.most_in_memory = most_groups});
  }

  /// From now on the client groups with helpers, where they can help.
  void read_in_parts() { embedded::register_groups(database_.handle(), {.helpers = &helpers_}); }

  /// Makes the tables and procedures that the script's statements create, and fills the tables.
  void define(std::string_view script) {
    for (const std::string_view sql : tsql::split_batch(script)) {
      const tsql::Compiled compiled = tsql::compile(sql, schema_);
      if (compiled.kind == tsql::StatementKind::create_procedure) {
        schema_.store_procedure(compiled.target, sql);
      } else if (compiled.kind == tsql::StatementKind::create_table) {
        database_.run(compiled.sqlite_sql.c_str());
        schema_.forget();
        fill(compiled.target);
      }
    }
  }

  /// Makes an index, by the statement that creates it.
  void add_index(std::string_view sql) {
    database_.run(tsql::compile(sql, schema_).sqlite_sql.c_str());
    schema_.forget();
  }

  const tsql::Schema& schema() const { return schema_; }

  /// The rows of a select, or of the select of an insert, each field with its type and to the last
  /// bit; or the error.
  std::vector<std::string> rows(std::string_view sql, tsql::Grouping grouping) {
    helpers_.prepare_for_statement();
    const tsql::Compiled compiled = tsql::compile(sql, schema_, grouping);
    const bool inserts = !compiled.source_sql.empty();
    embedded::Statement statement(database_, inserts ? compiled.source_sql : compiled.sqlite_sql);
    const auto literals = tsql::normalize(sql).literals;
    std::vector<tsql::StoredValue> values;
    for (const auto& parameter : compiled.parameters) {
      values.push_back(tsql::convert_literal(literals[parameter.literal], parameter));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
      embedded::bind_stored(statement, static_cast<int>(i) + 1, values[i]);
    }
    return read(statement);
  }

 private:
  static std::vector<std::string> read(embedded::Statement& statement) {
    std::vector<std::string> rows;
    try {
      while (statement.step()) {
        std::string& row = rows.emplace_back();
        const int columns = sqlite3_column_count(statement.handle());
        for (int i = 0; i < columns; ++i) row += field(statement, i) + "|";
      }
    } catch (const DatabaseError& error) {
      rows = {error.what()};
    }
    return rows;
  }

  static std::string field(const embedded::Statement& row, int column) {
    const int type = sqlite3_column_type(row.handle(), column);
    if (type == SQLITE_NULL) return "null";
    if (type != SQLITE_FLOAT) return "'" + row.text(column) + "'";
    std::array<char, 40> bits{};
    std::snprintf(bits.data(), bits.size(), "%a", sqlite3_column_double(row.handle(), column));
    return bits.data();
  }

  void fill(const std::string& table) {
    const auto& columns = schema_.find_table(table)->columns;
    std::string marks = "?1";
    for (std::size_t i = 2; i <= columns.size(); ++i) marks += ", ?" + std::to_string(i);
    embedded::Statement insert(
        database_, "INSERT INTO " + tsql::quoted_name(table) + " VALUES(" + marks + ")");
    database_.run("BEGIN");
    for (int i = 0; i < rows_a_table_; ++i) {
      const embedded::Run done(insert);
      std::vector<tsql::StoredValue> row;
      for (const auto& column : columns) row.push_back(values_(column.type));
      for (std::size_t c = 0; c < row.size(); ++c) {
        embedded::bind_stored(insert, static_cast<int>(c) + 1, row[c]);
      }
      insert.step();
    }
    database_.run("COMMIT");
  }

  testing::TemporaryFolder folder_;
  embedded::CommandClock clock_;
  embedded::Database database_{folder_ / "TelaData.db", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
  embedded::ReadingHelpers helpers_{folder_ / "TelaData.db", clock_};
  RandomValues values_;
  int rows_a_table_;
  embedded::CatalogueSchema schema_;
};

}  // namespace tela::test
