// The way of values between the client and the file: a day is stored as the whole number yyyymmdd,
// a time of day as hhmmss, the rest as SQLite's whole numbers, doubles and UTF-8 texts.
#pragma once

#include <string_view>

#include "platform/database/database_client.h"
#include "platform/embedded/sqlite_handles.h"
#include "platform/tsql/compiler.h"
#include "platform/tsql/values.h"

namespace tela::embedded {

/// The client's type of a column.
FieldType field_type(const tsql::Type& type);

/// The value in a column of the statement's current row. Throws DatabaseError of kind value where
/// the file holds what is no day or no time of day.
Value read_value(const Statement& row, int column, const tsql::Type& type);

/// Binds a value of a statement's text. The value must stand until the statement is run.
void bind_stored(Statement& statement, int position, const tsql::StoredValue& value);

/// Gives a value to SQLite as the result of a function or of a table's column.
void set_result(sqlite3_context* context, const tsql::StoredValue& value);

/// Binds a client's value for a table's column. Throws DatabaseError of kind value where it does
/// not fit. The value must stand until the statement is run.
void bind_for_column(Statement& statement, int position, const Value& value, std::string_view table,
                     const tsql::ColumnInfo& column);

}  // namespace tela::embedded
