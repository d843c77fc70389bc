// Statements that change rows or tables, in SQLite's words.
#include <algorithm>

#include "platform/tsql/emitter.h"
#include "platform/tsql/engine_names.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

// Whether an update reads anything but the row that it changes.
bool reads_other_rows(const Update& update) {
  return update.from.size() > 1 || (update.where && holds_subquery(*update.where)) ||
         std::ranges::any_of(update.assignments, [](const auto& assignment) {
           return holds_subquery(*assignment.value);
         });
}

}  // namespace

void Emitter::write_name(std::string_view name) {
  write(quoted_name(name));
}

void Emitter::write_table(std::string_view name) {
  write(table_name(name));
}

void Emitter::write_alias(int source) {
  write("t");
  write(std::to_string(source));
}

void Emitter::emit_column_list(const std::vector<std::string>& columns) {
  write("(");
  for (const std::string& column : columns) {
    if (&column != &columns.front()) write(", ");
    write_name(column);
  }
  write(")");
}

void Emitter::emit(const Insert& insert) {
  write("INSERT INTO ");
  write_table(insert.info->name);
  write(" ");
  emit_column_list(insert.columns);
  if (insert.select) {
    write(" ");
    return emit(*insert.select);
  }
  write(" VALUES ");
  for (const auto& row : insert.rows) {
    write(&row == &insert.rows.front() ? "(" : ", (");
    emit_list(row);
    write(")");
  }
}

void Emitter::emit(const Update& update) {
  write("UPDATE ");
  write_table(update.info->name);
  write(" AS ");
  if (reads_other_rows(update)) return emit_joined_update(update);
  write_alias(update.source);
  write(" SET ");
  for (const Assignment& assignment : update.assignments) {
    if (&assignment != &update.assignments.front()) write(", ");
    write_name(assignment.column);
    write(" = ");
    emit(*assignment.value);
  }
  emit_where(update.where);
}

// The new values come from a select, which is read to its end before the first row changes.
void Emitter::emit_joined_update(const Update& update) {
  write("changed SET ");
  std::size_t number = 0;
  for (const Assignment& assignment : update.assignments) {
    if (number > 0) write(", ");
    write_name(assignment.column);
    write(" = source.value");
    write_number(++number);
  }
  write(" FROM (SELECT ");
  write_alias(update.source);
  write(".rowid AS target");
  number = 0;
  for (const Assignment& assignment : update.assignments) {
    write(", ");
    emit(*assignment.value);
    write(" AS value");
    write_number(++number);
  }
  write(" FROM ");
  emit_from(update.from);
  emit_where(update.where);
  write(") AS source WHERE changed.rowid = source.target");
}

void Emitter::emit_where(const ExprPtr& condition) {
  if (!condition) return;
  write(" WHERE ");
  emit(*condition);
}

void Emitter::emit(const Delete& deletion) {
  const bool reads_others = deletion.from.size() > 1;
  write("DELETE FROM ");
  write_table(deletion.info->name);
  if (reads_others) {
    write(" WHERE rowid IN (SELECT ");
    write_alias(deletion.source);
    write(".rowid FROM ");
    emit_from(deletion.from);
  } else {
    write(" AS ");
    write_alias(deletion.source);
  }
  emit_where(deletion.where);
  if (reads_others) write(")");
}

void Emitter::emit(const CreateTable& create) {
  write(is_temporary(create.table) ? "CREATE TEMP TABLE " : "CREATE TABLE ");
  write_name(create.table);
  write(" (");
  for (const ColumnDefinition& column : create.columns) {
    if (&column != &create.columns.front()) write(", ");
    write_name(column.name);
    write(" ");
    write(column_declaration(column.type));
    if (column.not_null) write(" NOT NULL");
    if (column.primary_key) write(" PRIMARY KEY");
    if (column.unique) write(" UNIQUE");
  }
  if (!create.primary_key.empty()) {
    write(", PRIMARY KEY ");
    emit_column_list(create.primary_key);
  }
  write(")");
}

void Emitter::emit(const CreateIndex& create) {
  write(create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ");
  write(is_temporary(create.table) ? "temp." : "main.");
  write_name(create.name);
  write(" ON ");
  write_name(create.table);
  write(" (");
  for (const CreateIndex::Column& column : create.columns) {
    if (&column != &create.columns.front()) write(", ");
    write_name(column.name);
    if (column.descending) write(" DESC");
  }
  write(")");
}

void Emitter::emit(const DropTable& drop) {
  write("DROP TABLE ");
  write_table(drop.table);
}

}  // namespace tela::tsql
