#include "platform/odbc/column_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <system_error>

namespace tela::odbc {
namespace {

/// The server's own type for a time of day, which drivers report beside the standard's
/// SQL_TYPE_TIME.
constexpr SQLSMALLINT kServerTime = -154;

/// The length of "hh:mm:ss" behind "yyyy-mm-dd ".
constexpr std::size_t kDayLength = 10;
constexpr std::string_view kMidnight = "00:00:00";
/// The days that stand for "no day" where a time of day is stored with one: the server's day zero,
/// and that of the desktop programs of its time.
constexpr std::array<std::string_view, 2> kDaysZero = {"1900-01-01", "1899-12-30"};

bool is_money(SQLHSTMT statement, SQLUSMALLINT position, DriverText form) {
  return column_text(statement, position, SQL_DESC_TYPE_NAME, form).ends_with("money");
}

Fetch fetch_of(SQLSMALLINT sql_type, SQLHSTMT statement, SQLUSMALLINT position, DriverText form) {
  switch (sql_type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return Fetch::whole;
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return Fetch::number;
    case SQL_REAL:
      return Fetch::real;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return is_money(statement, position, form) ? Fetch::money : Fetch::decimal;
    case SQL_TYPE_DATE:
    case SQL_DATE:
      return Fetch::date;
    case SQL_TYPE_TIME:
    case SQL_TIME:
    case kServerTime:
      return Fetch::time;
    case SQL_TYPE_TIMESTAMP:
    case SQL_TIMESTAMP:
      return Fetch::timestamp;
    default:
      return Fetch::text;
  }
}

FieldType type_of(Fetch fetch, int scale) {
  switch (fetch) {
    case Fetch::whole:
      return FieldType::whole_number;
    case Fetch::number:
    case Fetch::real:
    case Fetch::money:
      return FieldType::number;
    case Fetch::decimal:
      return scale == 0 ? FieldType::whole_number : FieldType::number;
    case Fetch::date:
    case Fetch::timestamp:
      return FieldType::date;
    case Fetch::time:
      return FieldType::time;
    case Fetch::text:
      break;
  }
  return FieldType::text;
}

template <class Number>
std::optional<Number> parse(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// The double nearest to `value` with `scale` decimals: drivers scale a money value by arithmetic
/// that may miss it by a last digit.
double nearest_decimal(double value, int scale) {
  std::array<char, 64> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, scale);
  if (error != std::errc{}) return value;
  return parse<double>({text.data(), end}).value_or(value);
}

/// The double that reads as the single does: 1.1, not 1.10000002384186.
double widened(float single) {
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), single);
  if (error != std::errc{}) return single;
  return parse<double>({text.data(), end}).value_or(single);
}

/// A decimal in digits. One without decimals is a whole number, as long as it fits one.
Value decimal_value(const std::string& digits, int scale) {
  if (scale == 0) {
    if (const auto whole = parse<std::int64_t>(digits)) return *whole;
  }
  if (const auto number = parse<double>(digits)) return *number;
  throw DatabaseError(DatabaseError::Kind::other,
                      "The ODBC driver gave the decimal number \"" + digits + "\".");
}

std::string timestamp_text(const SQL_TIMESTAMP_STRUCT& at) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", at.year, at.month,
                at.day, at.hour, at.minute, at.second);
  return text.data();
}

Date day_of(std::string_view timestamp) {
  const auto part = [&](std::size_t at, std::size_t length) {
    return parse<unsigned>(timestamp.substr(at, length)).value_or(0);
  };
  return {std::chrono::year(static_cast<int>(part(0, 4))), std::chrono::month(part(5, 2)),
          std::chrono::day(part(8, 2))};
}

TimeOfDay time_of(std::string_view timestamp) {
  const auto part = [&](std::size_t at) { return parse<int>(timestamp.substr(at, 2)).value_or(0); };
  return {part(kDayLength + 1), part(kDayLength + 4), part(kDayLength + 7)};
}

/// Reads a value of fixed size into `out`; an absent one leaves `value` null.
template <class T, class Convert>
bool read_fixed(SQLHSTMT statement, SQLUSMALLINT position, SQLSMALLINT c_type, Value& value,
                Convert convert) {
  T out{};
  SQLLEN length = 0;
  if (!SQL_SUCCEEDED(SQLGetData(statement, position, c_type, &out, sizeof out, &length)))
    return false;
  if (length == SQL_NULL_DATA)
    value = std::monostate{};
  else
    value = convert(out);
  return true;
}

template <class Convert>
bool read_text(SQLHSTMT statement, SQLUSMALLINT position, DriverText form, Value& value,
               Convert convert) {
  std::string text;
  bool is_null = false;
  if (!SQL_SUCCEEDED(get_text(statement, position, form, text, is_null))) return false;
  if (is_null)
    value = std::monostate{};
  else
    value = convert(std::move(text));
  return true;
}

bool is_midnight(std::string_view timestamp) {
  return timestamp.substr(kDayLength + 1) == kMidnight;
}

bool is_on_day_zero(std::string_view timestamp) {
  const std::string_view day = timestamp.substr(0, kDayLength);
  return std::find(kDaysZero.begin(), kDaysZero.end(), day) != kDaysZero.end();
}

/// What the timestamps of one column turn out to be.
FieldType timestamp_kind(const RowSet& rows, std::size_t column) {
  bool all_midnight = true;
  bool all_day_zero = true;
  for (const auto& row : rows.rows) {
    const auto* text = std::get_if<std::string>(&row[column]);
    if (text == nullptr) continue;
    all_midnight = all_midnight && is_midnight(*text);
    all_day_zero = all_day_zero && is_on_day_zero(*text);
  }
  if (all_midnight) return FieldType::date;
  return all_day_zero ? FieldType::time : FieldType::text;
}

}  // namespace

std::vector<Column> describe_columns(SQLHSTMT statement, DriverText form) {
  SQLSMALLINT count = 0;
  if (!SQL_SUCCEEDED(SQLNumResultCols(statement, &count)) || count <= 0) return {};
  std::vector<Column> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (SQLUSMALLINT position = 1; position <= static_cast<SQLUSMALLINT>(count); ++position) {
    SQLSMALLINT sql_type = SQL_UNKNOWN_TYPE;
    SQLSMALLINT digits = 0;
    SQLDescribeCol(statement, position, nullptr, 0, nullptr, &sql_type, nullptr, &digits, nullptr);
    Column column;
    column.fetch = fetch_of(sql_type, statement, position, form);
    column.scale = digits;
    column.field.name = column_text(statement, position, SQL_DESC_LABEL, form);
    column.field.type = type_of(column.fetch, column.scale);
    columns.push_back(std::move(column));
  }
  return columns;
}

bool read_value(SQLHSTMT statement, SQLUSMALLINT position, const Column& column, DriverText form,
                Value& value) {
  const auto fixed = [&]<class T>(T /*type*/, SQLSMALLINT c_type, auto convert) {
    return read_fixed<T>(statement, position, c_type, value, convert);
  };
  switch (column.fetch) {
    case Fetch::whole:
      return fixed(std::int64_t{}, SQL_C_SBIGINT, [](std::int64_t whole) { return whole; });
    case Fetch::number:
      return fixed(double{}, SQL_C_DOUBLE, [](double number) { return number; });
    case Fetch::real:
      return fixed(double{}, SQL_C_DOUBLE,
                   [](double number) { return widened(static_cast<float>(number)); });
    case Fetch::money:
      return fixed(double{}, SQL_C_DOUBLE,
                   [&](double number) { return nearest_decimal(number, column.scale); });
    case Fetch::decimal:
      return read_text(statement, position, form, value, [&](const std::string& digits) {
        return decimal_value(digits, column.scale);
      });
    case Fetch::date:
      return fixed(SQL_DATE_STRUCT{}, SQL_C_TYPE_DATE, [](const SQL_DATE_STRUCT& date) {
        return Date(std::chrono::year(date.year), std::chrono::month(date.month),
                    std::chrono::day(date.day));
      });
    case Fetch::time:
      return fixed(SQL_TIME_STRUCT{}, SQL_C_TYPE_TIME, [](const SQL_TIME_STRUCT& time) {
        return TimeOfDay{time.hour, time.minute, time.second};
      });
    case Fetch::timestamp:
      return fixed(SQL_TIMESTAMP_STRUCT{}, SQL_C_TYPE_TIMESTAMP, timestamp_text);
    case Fetch::text:
      break;
  }
  return read_text(statement, position, form, value, [](std::string text) { return text; });
}

void settle_timestamps(const std::vector<Column>& columns, RowSet& rows) {
  for (std::size_t column = 0; column < columns.size(); ++column) {
    if (columns[column].fetch != Fetch::timestamp) continue;
    const FieldType kind = timestamp_kind(rows, column);
    rows.fields[column].type = kind;
    if (kind == FieldType::text) continue;
    for (auto& row : rows.rows) {
      const auto* text = std::get_if<std::string>(&row[column]);
      if (text == nullptr) continue;
      row[column] = kind == FieldType::date ? Value(day_of(*text)) : Value(time_of(*text));
    }
  }
}

void settle_timestamps(const std::vector<Column>& columns, std::vector<Value>& row) {
  for (std::size_t column = 0; column < columns.size(); ++column) {
    if (columns[column].fetch != Fetch::timestamp) continue;
    const auto* text = std::get_if<std::string>(&row[column]);
    if (text == nullptr) continue;
    if (is_midnight(*text)) {
      row[column] = day_of(*text);
    } else if (is_on_day_zero(*text)) {
      row[column] = time_of(*text);
    }
  }
}

}  // namespace tela::odbc
