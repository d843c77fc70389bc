#include "platform/embedded/stored_values.h"

#include <string>

#include "platform/tsql/types.h"

namespace tela::embedded {
namespace {

using tsql::Type;
using tsql::TypeKind;

DatabaseError value_error(const std::string& message) {
  return {DatabaseError::Kind::value, message};
}

Date day_of(std::int64_t stored) {
  const Date day{std::chrono::year(static_cast<int>(stored / 10000)),
                 std::chrono::month(static_cast<unsigned>(stored / 100 % 100)),
                 std::chrono::day(static_cast<unsigned>(stored % 100))};
  if (stored < 0 || !day.ok())
    throw value_error("The catalogue holds " + std::to_string(stored) + " where a date belongs.");
  return day;
}

TimeOfDay time_of(std::int64_t stored) {
  const TimeOfDay time{static_cast<int>(stored / 10000), static_cast<int>(stored / 100 % 100),
                       static_cast<int>(stored % 100)};
  if (stored < 0 || time.hour > 23 || time.minute > 59 || time.second > 59)
    throw value_error("The catalogue holds " + std::to_string(stored) +
                      " where a time of day belongs.");
  return time;
}

std::int64_t stored_day(const Date& day) {
  return static_cast<int>(day.year()) * 10000 + static_cast<unsigned>(day.month()) * 100 +
         static_cast<unsigned>(day.day());
}

std::int64_t stored_time(const TimeOfDay& time) {
  return time.hour * 10000 + time.minute * 100 + time.second;
}

/// A column whose type is not known, such as a bare null's, gives what is stored.
Value read_untyped(const Statement& row, int column) {
  switch (sqlite3_column_type(row.handle(), column)) {
    case SQLITE_INTEGER:
      return row.number(column);
    case SQLITE_FLOAT:
      return sqlite3_column_double(row.handle(), column);
    default:
      return row.text(column);
  }
}

/// Binds one alternative of Value to a column of one type.
struct ColumnBinder {
  Statement& statement;
  int position;
  std::string_view table;
  const tsql::ColumnInfo& column;

  void operator()(std::monostate) const { statement.bind_null(position); }

  void operator()(const std::string& text) const {
    require(column.type.kind == TypeKind::text, "a text");
    // Checks the length; blanks beyond it are cut, and the text that is left begins where it began.
    const auto fitted = tsql::fit_text(text, column.type.length, table, column.name);
    statement.bind(position, std::string_view(text).substr(0, fitted.size()));
  }

  void operator()(double number) const {
    const bool fractions = column.type.kind == TypeKind::real || !is_whole(column.type);
    require(is_number() && fractions, "a number with decimals");
    statement.bind(position, number);
  }

  void operator()(std::int64_t number) const {
    require(is_number(), "a number");
    if (is_whole(column.type)) {
      statement.bind(position, number);
    } else {
      statement.bind(position, static_cast<double>(number));
    }
  }

  void operator()(const Date& day) const {
    require(column.type.kind == TypeKind::date && day.ok(), "a date");
    statement.bind(position, stored_day(day));
  }

  void operator()(const TimeOfDay& time) const {
    require(column.type.kind == TypeKind::time, "a time of day");
    statement.bind(position, stored_time(time));
  }

  bool is_number() const { return tsql::is_numeric(column.type); }

  void require(bool fits, const char* what) const {
    if (fits) return;
    throw value_error("The column '" + column.name + "' of '" + std::string(table) +
                      "' does not take " + what + ".");
  }
};

}  // namespace

FieldType field_type(const Type& type) {
  switch (type.kind) {
    case TypeKind::integer:
      return FieldType::whole_number;
    case TypeKind::decimal:
      return is_whole(type) ? FieldType::whole_number : FieldType::number;
    case TypeKind::real:
      return FieldType::number;
    case TypeKind::date:
      return FieldType::date;
    case TypeKind::time:
      return FieldType::time;
    case TypeKind::text:
    case TypeKind::null:
      break;
  }
  return FieldType::text;
}

Value read_value(const Statement& row, int column, const Type& type) {
  if (sqlite3_column_type(row.handle(), column) == SQLITE_NULL) return {};
  if (type.kind == TypeKind::null) return read_untyped(row, column);
  switch (field_type(type)) {
    case FieldType::whole_number:
      return row.number(column);
    case FieldType::number:
      return sqlite3_column_double(row.handle(), column);
    case FieldType::date:
      return day_of(row.number(column));
    case FieldType::time:
      return time_of(row.number(column));
    case FieldType::text:
      break;
  }
  return row.text(column);
}

void bind_stored(Statement& statement, int position, const tsql::StoredValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return statement.bind(position, *text);
  if (const auto* number = std::get_if<double>(&value)) return statement.bind(position, *number);
  if (const auto* whole = std::get_if<std::int64_t>(&value))
    return statement.bind(position, *whole);
  statement.bind_null(position);
}

void set_result(sqlite3_context* context, const tsql::StoredValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    return sqlite3_result_text64(context, text->data(), text->size(), SQLITE_TRANSIENT,
                                 SQLITE_UTF8);
  }
  if (const auto* number = std::get_if<double>(&value)) {
    return sqlite3_result_double(context, *number);
  }
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    return sqlite3_result_int64(context, *whole);
  }
  sqlite3_result_null(context);
}

void bind_for_column(Statement& statement, int position, const Value& value, std::string_view table,
                     const tsql::ColumnInfo& column) {
  try {
    std::visit(ColumnBinder{statement, position, table, column}, value);
  } catch (const tsql::CompileError& error) {
    throw value_error(error.what());
  }
}

}  // namespace tela::embedded
