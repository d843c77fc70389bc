// The server's rules for values, shared by the parameters of a statement and by the functions that
// the compiled SQL calls: one conversion, whether a value is written in a statement or computed.
//
// Stored forms: a date is the whole number yyyymmdd, a time hhmmss, a decimal without decimals a
// whole number, every other number a double. Each conversion throws CompileError of kind value, in
// the server's words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/tsql/compiler.h"

namespace tela::tsql {

/// A value as the engine stores it: null, whole number, double or text.
using StoredValue = std::variant<std::monostate, std::int64_t, double, std::string>;

/// The value that a literal is bound as, converted to the parameter's target type; a text longer
/// than its column is an error that names table and column.
StoredValue convert_literal(const Literal& literal, const Parameter& parameter);

/// A number or text as a whole number of `digits` digits (see Type::precision); cuts the decimals.
std::int64_t to_integer(double value, int digits);
std::int64_t to_integer(std::int64_t value, int digits);
std::int64_t to_integer(std::string_view text, int digits);

/// A number or text as a decimal, rounded half away from zero to its scale.
StoredValue to_decimal(double value, const Type& type);
StoredValue to_decimal(std::int64_t value, const Type& type);
StoredValue to_decimal(std::string_view text, const Type& type);

/// A text as a floating number; a blank text is 0.
double to_real(std::string_view text);

/// A text as a day, yyyymmdd, and as a time of day, hhmmss.
std::int64_t to_date(std::string_view text);
std::int64_t to_time(std::string_view text);

/// A number as text: up to 15 digits, no zeros behind.
std::string number_text(double value);

/// A stored day as text under a style number of the server's convert; style 0 is yyyy-mm-dd.
std::string date_text(std::int64_t stored_date, int style);

/// A stored time of day as HH:MM:SS.
std::string time_text(std::int64_t stored_time);

/// The text as it goes into a column of `length` characters: blanks beyond it are cut, anything
/// else is an error that names the column.
std::string fit_text(std::string_view text, int length, std::string_view table,
                     std::string_view column);

/// `str`: right-aligned in `width` with `decimals`, rounded half away from zero; a row of asterisks
/// if that does not fit.
std::string str(double value, int width, int decimals);

/// `datename`: the English name of the month or the weekday, or the number of another part.
std::string date_name(std::string_view part, std::int64_t stored_date);

/// The number of one part of a stored day; weeks begin on Sunday, which is day 1.
std::int64_t date_part(std::string_view part, std::int64_t stored_date);

/// `dateadd` and `datediff` of days, weeks, months, quarters and years.
std::int64_t date_add(std::string_view part, std::int64_t count, std::int64_t stored_date);
std::int64_t date_difference(std::string_view part, std::int64_t from, std::int64_t to);

}  // namespace tela::tsql
