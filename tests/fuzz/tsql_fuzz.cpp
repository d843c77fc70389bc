// Feeds the T-SQL front end with damaged statements. Whatever it accepts must print and parse again
// to an equal tree, and the engine must be able to prepare what it compiles to. Run it as
//
//   tela_tsql_fuzz -dict=tests/fuzz/tsql.dict NEW_FINDS_FOLDER build/fuzz/tests/fuzz/corpus
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/embedded/sql_functions.h"
#include "platform/tsql/parser.h"
#include "platform/tsql/values.h"
#include "tsql/memory_schema.h"
#include "tsql/printer.h"
#include "tsql/tree_dump.h"

namespace {

using tela::test::MemorySchema;
using namespace tela::tsql;

[[noreturn]] void fail(std::string_view what, std::string_view sql, std::string_view detail) {
  std::fprintf(stderr, "%.*s\n  statement: %.*s\n  %.*s\n", static_cast<int>(what.size()),
               what.data(), static_cast<int>(sql.size()), sql.data(),
               static_cast<int>(detail.size()), detail.data());
  std::abort();
}

// An empty catalogue in memory, with the front end's view of it.
class Catalogue {
 public:
  Catalogue() : schema_(MemorySchema::of_catalogue()) {
    sqlite3_open(":memory:", &database_);
    tela::register_sql_functions(database_);
    sqlite3_progress_handler(
        database_, 100000, [](void*) { return 1; }, nullptr);
    const MemorySchema nothing;
    for (const std::string& sql : schema_.table_statements()) {
      const std::string sqlite_sql = compile(sql, nothing).sqlite_sql;
      if (sqlite3_exec(database_, sqlite_sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail("The schema was refused", sql, sqlite3_errmsg(database_));
      }
    }
  }

  void check(std::string_view sql) {
    const Normalized normalized = normalize(sql);
    const Parsed parsed = parse(sql);
    check_round_trip(sql, parsed.statement);
    if (parsed.literal_count != normalized.literals.size()) fail("Literals differ", sql, "");
    const Compiled compiled = compile(sql, schema_);
    if (!compiled.sqlite_sql.empty()) prepare(sql, compiled, normalized);
  }

 private:
  static void check_round_trip(std::string_view sql, const Statement& statement) {
    const std::string printed = tela::test::print(statement);
    try {
      if (tela::test::dump(parse(printed).statement) == tela::test::dump(statement)) return;
    } catch (const CompileError& error) {
      fail(error.what(), sql, printed);
    }
    fail("The printed statement is another one", sql, printed);
  }

  void prepare(std::string_view sql, const Compiled& compiled, const Normalized& normalized) {
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v2(database_, compiled.sqlite_sql.c_str(), -1, &statement, nullptr);
    if (code != SQLITE_OK && !is_accepted_refusal(compiled)) {
      fail(sqlite3_errmsg(database_), sql, compiled.sqlite_sql);
    }
    if (code == SQLITE_OK) run(statement, compiled, normalized);
    sqlite3_finalize(statement);
  }

  // What only the engine can know: the names of its indexes, and how deep its parser goes.
  bool is_accepted_refusal(const Compiled& compiled) const {
    return std::string_view(sqlite3_errmsg(database_)) == "parser stack overflow" ||
           compiled.kind == StatementKind::create_index ||
           compiled.kind == StatementKind::create_table;
  }

  // Reads the rows of a select; an error of a value is an answer too.
  static void run(sqlite3_stmt* statement, const Compiled& compiled, const Normalized& normalized) {
    for (std::size_t i = 0; i < compiled.parameters.size(); ++i) {
      const Parameter& parameter = compiled.parameters[i];
      bind(statement, static_cast<int>(i) + 1,
           convert_literal(normalized.literals.at(parameter.literal), parameter));
    }
    if (compiled.kind != StatementKind::select) return;
    for (int rows = 0; rows < 100 && sqlite3_step(statement) == SQLITE_ROW; ++rows) continue;
  }

  static void bind(sqlite3_stmt* statement, int index, const StoredValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      sqlite3_bind_int64(statement, index, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
      sqlite3_bind_double(statement, index, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
      sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()),
                        SQLITE_TRANSIENT);
    }
  }

  MemorySchema schema_;
  sqlite3* database_ = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Catalogue catalogue;
  const std::string sql(reinterpret_cast<const char*>(data), size);
  try {
    catalogue.check(sql);
  } catch (const CompileError&) {
    // Refused with a reason.
  }
  try {
    split_batch(sql);
  } catch (const CompileError&) {
    // Refused as well.
  }
  return 0;
}
