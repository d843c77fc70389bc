#include "platform/tsql/compiler.h"

#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/engine_names.h"
#include "platform/tsql/parser.h"
#include "platform/tsql/rewrite.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

// Compiles each kind of statement.
class Compilation {
 public:
  Compilation(const Schema& schema, Grouping grouping)
      : schema_(schema), grouping_(grouping), binder_(schema) {}

  void operator()(SelectPtr& select) {
    result_.columns = binder_.bind(*select);
    rewrite(*select, grouping_);
    emitter_.emit(*select);
  }

  void operator()(Execute& execute) {
    SelectPtr select = expand_procedure(execute, schema_);
    (*this)(select);
  }

  void operator()(Insert& insert) {
    binder_.bind(insert);
    change(StatementKind::insert, insert.info->name);
    if (insert.select) rewrite(*insert.select, grouping_);
    emitter_.emit(insert);
    if (insert.select) split(insert);
  }

  void operator()(Update& update) {
    binder_.bind(update);
    change(StatementKind::update, update.info->name);
    emitter_.emit(update);
  }

  void operator()(Delete& deletion) {
    binder_.bind(deletion);
    change(StatementKind::delete_rows, deletion.info->name);
    emitter_.emit(deletion);
  }

  void operator()(CreateTable& create) {
    binder_.bind(create);
    change(StatementKind::create_table, create.table);
    emitter_.emit(create);
  }

  void operator()(CreateIndex& create) {
    binder_.bind(create);
    change(StatementKind::create_index, create.table);
    emitter_.emit(create);
  }

  void operator()(DropTable& drop) {
    binder_.bind(drop);
    change(StatementKind::drop_table, drop.table);
    emitter_.emit(drop);
  }

  // The tables that a procedure names are looked up when it is called.
  void operator()(CreateProcedure& create) {
    for (const auto& parameter : create.parameters) parse_type_name(parameter.type);
    change(StatementKind::create_procedure, create.name);
  }

  void operator()(DropProcedure& drop) {
    binder_.bind(drop);
    change(StatementKind::drop_procedure, drop.procedure);
  }

  Compiled finish(std::size_t literal_count) {
    result_.sqlite_sql = std::move(emitter_.sql());
    result_.parameters = std::move(emitter_.parameters());
    result_.reads_catalogue = binder_.reads_catalogue();
    result_.group_days = std::move(emitter_.group_days());
    pin_rest(literal_count);
    return std::move(result_);
  }

 private:
  void change(StatementKind kind, const std::string& target) {
    result_.kind = kind;
    result_.target = target;
    result_.target_is_temporary = is_temporary(target);
  }

  // The emitted insert is a head with table and columns, a blank, and the select.
  void split(const Insert& insert) {
    std::string head = "INSERT INTO " + table_name(insert.info->name) + " (";
    std::string values;
    for (std::size_t i = 0; i < insert.columns.size(); ++i) {
      head += (i == 0 ? "" : ", ") + quoted_name(insert.columns[i]);
      values += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
    }
    head += ") ";
    result_.source_sql = emitter_.sql().substr(head.size());
    result_.insert_row_sql = head + "VALUES (" + values + ")";
  }

  // Whatever literal is no parameter has become part of the text.
  void pin_rest(std::size_t literal_count) {
    std::vector<bool> is_bound(literal_count, false);
    for (const Parameter& parameter : result_.parameters) is_bound[parameter.literal] = true;
    for (const std::size_t literal : binder_.pinned()) is_bound[literal] = false;
    for (std::size_t i = 0; i < literal_count; ++i) {
      if (!is_bound[i]) result_.pinned.push_back(i);
    }
  }

  const Schema& schema_;
  Grouping grouping_;
  Binder binder_;
  Emitter emitter_;
  Compiled result_;
};

}  // namespace

Compiled compile(std::string_view sql, const Schema& schema, Grouping grouping) {
  Parsed parsed = parse(sql);
  Compilation compilation(schema, grouping);
  std::visit(compilation, parsed.statement);
  return compilation.finish(parsed.literal_count);
}

}  // namespace tela::tsql
