// What the names of tables and columns mean.
#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/engine_names.h"
#include "platform/tsql/lexer.h"

namespace tela::tsql {
namespace {

// The engine joins 64 tables at most; some are added to what is written.
constexpr std::size_t most_tables = 60;

const std::string& exposed_name(const TableRef& table) {
  return table.alias.empty() ? table.table : table.alias;
}

const ColumnInfo* column_of(const TableInfo& table, std::string_view name) {
  const auto found = std::ranges::find_if(
      table.columns, [&](const ColumnInfo& column) { return same_name(column.name, name); });
  return found == table.columns.end() ? nullptr : &*found;
}

[[noreturn]] void throw_unknown(const std::string& message, std::size_t position) {
  throw CompileError(CompileError::Kind::unknown_name, message, position);
}

void check_exposed_names(const std::vector<TableRef>& tables) {
  for (auto table = tables.begin(); table != tables.end(); ++table) {
    const bool is_repeated = std::any_of(tables.begin(), table, [&](const TableRef& earlier) {
      return same_name(exposed_name(earlier), exposed_name(*table));
    });
    if (is_repeated) {
      throw_unknown(
          "The objects \"" + exposed_name(*table) + "\" and \"" + exposed_name(*table) +
              "\" in the FROM clause have the same exposed names. Use correlation names to "
              "distinguish them.",
          table->position);
    }
  }
}

}  // namespace

const TableInfo& Binder::table_info(std::string_view name, std::size_t position) const {
  const TableInfo* info = schema_.find_table(name);
  if (info == nullptr) throw_unknown("Invalid object name '" + std::string(name) + "'.", position);
  return *info;
}

void Binder::bind_from(std::vector<TableRef>& tables, Scope& scope) {
  if (tables.size() > most_tables) {
    throw CompileError(CompileError::Kind::syntax, "Too many table names in the query.",
                       tables.back().position);
  }
  check_exposed_names(tables);
  for (TableRef& table : tables) {
    table.source = ++sources_;
    if (table.derived) {
      bind_derived(table);
    } else {
      table.info = &table_info(table.table, table.position);
      reads_catalogue_ = reads_catalogue_ || !is_temporary(table.info->name);
    }
    ++scope.visible;
    if (table.on) bind_condition(table.on, scope);
  }
}

void Binder::bind_derived(TableRef& table) {
  auto info = std::make_unique<TableInfo>();
  for (ResultColumn& column : bind_query(*table.derived, nullptr)) {
    if (column.name.empty()) {
      throw_unknown("No column name was specified for column " +
                        std::to_string(info->columns.size() + 1) + " of '" + table.alias + "'.",
                    table.position);
    }
    if (column_of(*info, column.name) != nullptr) {
      throw_unknown("The column '" + column.name + "' was specified multiple times for '" +
                        table.alias + "'.",
                    table.position);
    }
    info->columns.push_back({std::move(column.name), column.type});
  }
  table.info = info.get();
  derived_.push_back(std::move(info));
}

void Binder::set_column(Expr& column, const TableRef& table, const ColumnInfo& info) {
  column.source = table.source;
  column.column = info.name;
  column.type = info.type;
}

bool Binder::find_column(Expr& column, const Scope& scope) const {
  bool is_table_known = false;
  for (std::size_t i = 0; i < scope.visible; ++i) {
    const TableRef& table = (*scope.tables)[i];
    if (!column.qualifier.empty() && !same_name(column.qualifier, exposed_name(table))) continue;
    is_table_known = true;
    const ColumnInfo* info = column_of(*table.info, column.name);
    if (info == nullptr) continue;
    if (column.source >= 0) {
      throw_unknown("Ambiguous column name '" + column.name + "'.", column.position);
    }
    set_column(column, table, *info);
  }
  if (column.source < 0 && is_table_known && !column.qualifier.empty()) {
    throw_unknown("Invalid column name '" + column.name + "'.", column.position);
  }
  return column.source >= 0;
}

void Binder::bind_column(Expr& column, Scope& scope) const {
  if (column.source >= 0) return;  // stands for a star
  for (const Scope* level = &scope; level != nullptr; level = level->outer) {
    if (find_column(column, *level)) return;
  }
  if (column.qualifier.empty()) {
    throw_unknown("Invalid column name '" + column.name + "'.", column.position);
  }
  throw_unknown("The multi-part identifier \"" + column.qualifier + "." + column.name +
                    "\" could not be bound.",
                column.position);
}

void Binder::expand_stars(Select& select) const {
  std::vector<SelectItem> items;
  for (SelectItem& item : select.items) {
    if (item.value->kind != ExprKind::star) {
      items.push_back(std::move(item));
      continue;
    }
    const Expr& star = *item.value;
    bool is_table_known = false;
    for (const TableRef& table : select.from) {
      if (!star.qualifier.empty() && !same_name(star.qualifier, exposed_name(table))) continue;
      is_table_known = true;
      for (const ColumnInfo& info : table.info->columns) {
        auto column = std::make_unique<Expr>();
        column->kind = ExprKind::column;
        column->position = star.position;
        column->name = info.name;
        set_column(*column, table, info);
        items.push_back({std::move(column), {}});
      }
    }
    if (is_table_known) continue;
    if (star.qualifier.empty()) {
      throw CompileError(CompileError::Kind::syntax, "Must specify table to select from.",
                         star.position);
    }
    throw_unknown("The column prefix '" + star.qualifier +
                      "' does not match with a table name or alias name used in the query.",
                  star.position);
  }
  select.items = std::move(items);
}

}  // namespace tela::tsql
