// Statements that change rows or tables.
#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/conversions.h"
#include "platform/tsql/lexer.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

constexpr std::size_t most_rows = 1000;
constexpr std::size_t most_columns = 1000;

[[noreturn]] void throw_syntax(const std::string& message, std::size_t position) {
  throw CompileError(CompileError::Kind::syntax, message, position);
}

[[noreturn]] void throw_unknown(const std::string& message, std::size_t position) {
  throw CompileError(CompileError::Kind::unknown_name, message, position);
}

const ColumnInfo& column_of(const TableInfo& table, const std::string& name, std::size_t position) {
  const auto found = std::ranges::find_if(
      table.columns, [&](const ColumnInfo& column) { return same_name(column.name, name); });
  if (found == table.columns.end()) throw_unknown("Invalid column name '" + name + "'.", position);
  return *found;
}

void check_repeated(const std::vector<std::string>& names, std::size_t position) {
  for (auto name = names.begin(); name != names.end(); ++name) {
    if (std::none_of(names.begin(), name,
                     [&](const auto& other) { return same_name(other, *name); }))
      continue;
    throw_unknown(
        "The column name '" + *name +
            "' is specified more than once in the SET clause or column list of an INSERT.",
        position);
  }
}

[[noreturn]] void throw_count(const Insert& insert, bool has_list, bool too_many) {
  if (!has_list) {
    throw_syntax("Column name or number of supplied values does not match table definition.",
                 insert.position);
  }
  throw_syntax(too_many ? "There are fewer columns in the INSERT statement than values specified."
                        : "There are more columns in the INSERT statement than values specified.",
               insert.position);
}

// A select whose rows are those of `inner`, so that conversions behind it leave distinct and union
// as they are.
SelectPtr select_from(SelectPtr inner, std::vector<ResultColumn> columns, TableInfo& info,
                      int source) {
  auto outer = std::make_unique<Select>();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    info.columns.push_back({"column" + std::to_string(i + 1), columns[i].type});
    auto column = std::make_unique<Expr>();
    column->kind = ExprKind::column;
    column->column = column->name = info.columns.back().name;
    column->source = source;
    column->type = columns[i].type;
    outer->items.push_back({std::move(column), {}});
  }
  for (Select* core = inner.get(); core != nullptr; core = core->union_with.get()) {
    for (std::size_t i = 0; i < columns.size(); ++i) core->items[i].alias = info.columns[i].name;
  }
  TableRef table;
  table.derived = std::move(inner);
  table.info = &info;
  table.source = source;
  outer->from.push_back(std::move(table));
  return outer;
}

}  // namespace

void Binder::bind(Insert& insert) {
  insert.info = &table_info(insert.table, insert.position);
  if (insert.execute) insert.select = expand_procedure(*insert.execute, schema_);
  const bool has_list = !insert.columns.empty();
  bind_target_columns(insert);
  const std::size_t expected = insert.columns.size();
  if (insert.select) {
    std::vector<ResultColumn> columns = bind_query(*insert.select, nullptr);
    if (columns.size() != expected) throw_count(insert, has_list, columns.size() > expected);
    bind_source(insert, std::move(columns));
    return;
  }
  if (insert.rows.size() > most_rows) {
    throw_syntax(
        "The number of row value expressions in the INSERT statement exceeds the maximum allowed "
        "number of 1000 row values.",
        insert.position);
  }
  for (const auto& row : insert.rows) {
    if (row.size() != expected) throw_count(insert, has_list, row.size() > expected);
  }
  bind_rows(insert);
}

// Without a list of columns all are meant, in their order.
void Binder::bind_target_columns(Insert& insert) const {
  if (insert.columns.empty()) {
    for (const ColumnInfo& column : insert.info->columns) insert.columns.push_back(column.name);
    return;
  }
  check_repeated(insert.columns, insert.position);
  for (std::string& name : insert.columns) {
    name = column_of(*insert.info, name, insert.position).name;
  }
}

void Binder::bind_rows(Insert& insert) {
  std::vector<TableRef> no_tables;
  Scope scope{&no_tables};
  for (auto& row : insert.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const ColumnInfo& column = column_of(*insert.info, insert.columns[i], insert.position);
      bind_value(row[i], scope);
      assign(row[i], column.type, {insert.info->name, column.name});
    }
  }
}

void Binder::bind_source(Insert& insert, std::vector<ResultColumn> columns) {
  const auto target = [&](std::size_t i) -> const ColumnInfo& {
    return column_of(*insert.info, insert.columns[i], insert.position);
  };
  for (std::size_t i = 0; i < columns.size() && !insert.select->union_with; ++i) {
    ExprPtr& value = insert.select->items[i].value;
    if (!is_str_call(*value)) continue;
    unify(value, target(i).type);
    columns[i].type = value->type;
  }
  if (insert.select->distinct || insert.select->union_with) {
    derived_.push_back(std::make_unique<TableInfo>());
    insert.select = select_from(std::move(insert.select), columns, *derived_.back(), ++sources_);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    assign(insert.select->items[i].value, target(i).type, {insert.info->name, target(i).name});
  }
}

// Finds the target of an update or a delete among the tables of its from clause, by alias or name;
// it joins them if it is not there. Gives its number.
int Binder::bind_target(std::vector<TableRef>& from, const std::string& table, std::size_t position,
                        Scope& scope) {
  const auto is_target = [&](const TableRef& candidate) {
    return !candidate.derived &&
           same_name(candidate.alias.empty() ? candidate.table : candidate.alias, table);
  };
  auto target = std::ranges::find_if(from, is_target);
  if (target == from.end()) {
    target = std::ranges::find_if(from, [&](const TableRef& candidate) {
      return !candidate.derived && same_name(candidate.table, table);
    });
  }
  auto index = static_cast<std::size_t>(target - from.begin());
  if (target == from.end()) {
    TableRef reference;
    reference.join = from.empty() ? JoinKind::first : JoinKind::comma;
    reference.position = position;
    reference.table = table;
    from.push_back(std::move(reference));
  }
  bind_from(from, scope);
  return from[index].source;
}

void Binder::bind(Update& update) {
  Scope scope{&update.from};
  update.source = bind_target(update.from, update.table, update.position, scope);
  const auto target = std::ranges::find_if(
      update.from, [&](const TableRef& table) { return table.source == update.source; });
  update.info = target->info;
  std::vector<std::string> columns;
  for (Assignment& assignment : update.assignments) {
    const bool names_target = assignment.qualifier.empty() ||
                              same_name(assignment.qualifier, update.table) ||
                              same_name(assignment.qualifier, target->alias) ||
                              same_name(assignment.qualifier, target->table);
    if (!names_target) {
      throw_unknown("The multi-part identifier \"" + assignment.qualifier + "." +
                        assignment.column + "\" could not be bound.",
                    assignment.position);
    }
    const ColumnInfo& column = column_of(*update.info, assignment.column, assignment.position);
    assignment.column = column.name;
    columns.push_back(column.name);
    bind_value(assignment.value, scope);
    assign(assignment.value, column.type, {update.info->name, column.name});
  }
  check_repeated(columns, update.position);
  if (update.where) bind_condition(update.where, scope);
}

void Binder::bind(Delete& deletion) {
  Scope scope{&deletion.from};
  deletion.source = bind_target(deletion.from, deletion.table, deletion.position, scope);
  deletion.info = std::ranges::find_if(deletion.from, [&](const TableRef& table) {
                    return table.source == deletion.source;
                  })->info;
  if (deletion.where) bind_condition(deletion.where, scope);
}

void Binder::bind(const CreateTable& create) const {
  if (schema_.find_table(create.table) != nullptr) {
    throw_unknown("There is already an object named '" + create.table + "' in the database.", 0);
  }
  if (create.columns.empty() || create.columns.size() > most_columns) {
    throw_syntax("A table has from 1 to 1000 columns.", 0);
  }
  const auto is_column = [&](const std::string& name) {
    return std::ranges::count_if(create.columns, [&](const ColumnDefinition& column) {
      return same_name(column.name, name);
    });
  };
  auto keys = static_cast<int>(!create.primary_key.empty());
  for (const ColumnDefinition& column : create.columns) {
    parse_type_name(column.type);
    keys += static_cast<int>(column.primary_key);
    if (is_column(column.name) > 1) {
      throw_unknown("Column names in each table must be unique. Column name '" + column.name +
                        "' in table '" + create.table + "' is specified more than once.",
                    column.position);
    }
  }
  if (keys > 1) {
    throw_syntax("Cannot add multiple PRIMARY KEY constraints to table '" + create.table + "'.", 0);
  }
  for (const std::string& name : create.primary_key) {
    if (is_column(name) == 0) throw_unknown("Invalid column name '" + name + "'.", 0);
  }
}

void Binder::bind(CreateIndex& create) const {
  const TableInfo& info = table_info(create.table, create.position);
  create.table = info.name;
  for (CreateIndex::Column& column : create.columns) {
    column.name = column_of(info, column.name, create.position).name;
  }
}

void Binder::bind(DropTable& drop) const {
  const TableInfo* info = schema_.find_table(drop.table);
  if (info == nullptr) {
    throw_unknown("Cannot drop the table '" + drop.table +
                      "', because it does not exist or you do not have permission.",
                  drop.position);
  }
  drop.table = info->name;
}

void Binder::bind(const DropProcedure& drop) const {
  if (schema_.find_procedure(drop.procedure)) return;
  throw_unknown("Cannot drop the procedure '" + drop.procedure +
                    "', because it does not exist or you do not have permission.",
                drop.position);
}

}  // namespace tela::tsql
