#include "platform/tsql/values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/text/ascii.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "platform/text/utf8.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

[[noreturn]] void throw_value(const std::string& message) {
  throw CompileError(CompileError::Kind::value, message);
}

[[noreturn]] void throw_overflow(const std::string& type) {
  throw_value("Arithmetic overflow error converting expression to data type " + type + ".");
}

std::string integer_name(int digits) {
  return type_name({TypeKind::integer, 0, digits, 0});
}

// The lowest and highest integer of a width.
std::pair<std::int64_t, std::int64_t> integer_range(int digits) {
  switch (digits) {
    case 3:
      return {0, 255};
    case 5:
      return {-32768, 32767};
    case 10:
      return {-2147483648LL, 2147483647LL};
    default:
      return {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
  }
}

// The text as a whole number, if it is one and fits; a sign may stand ahead.
std::optional<std::int64_t> whole_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || rest != text.data() + text.size()) return std::nullopt;
  return value;
}

bool holds_digits_alone(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && std::ranges::all_of(text, is_digit);
}

// The number that a literal or a text is, at its full width where it is whole.
StoredValue plain_value(std::string_view number) {
  if (const auto whole = whole_number(number)) return *whole;
  return Val(number);
}

// A number as the text that it becomes: -007.50 is -7.50.
std::string canonical_number(std::string_view number) {
  std::string sign;
  if (number.starts_with('-')) {
    sign = "-";
    number.remove_prefix(1);
  }
  while (number.size() > 1 && number[0] == '0' && is_digit(number[1])) number.remove_prefix(1);
  if (number.ends_with('.')) number.remove_suffix(1);
  return sign + (number.starts_with('.') ? "0" : "") + std::string(number);
}

StoredValue text_literal(const Literal& literal, const Parameter& parameter) {
  const std::string text = literal.kind == LiteralKind::text   ? literal.text
                           : literal.kind == LiteralKind::real ? plain_number(Val(literal.text))
                                                               : canonical_number(literal.text);
  if (parameter.target.length == 0) return text;
  return fit_text(text, parameter.target.length, parameter.table, parameter.column);
}

struct ToInteger {
  int digits;
  StoredValue operator()(std::monostate) const { return {}; }
  StoredValue operator()(const std::string& text) const { return to_integer(text, digits); }
  StoredValue operator()(auto number) const { return to_integer(number, digits); }
};

struct ToDecimal {
  const Type& type;
  StoredValue operator()(std::monostate) const { return {}; }
  StoredValue operator()(const std::string& text) const { return to_decimal(text, type); }
  StoredValue operator()(auto number) const { return to_decimal(number, type); }
};

}  // namespace

StoredValue convert_literal(const Literal& literal, const Parameter& parameter) {
  const bool is_text_literal = literal.kind == LiteralKind::text;
  const auto own_value = [&]() -> StoredValue {
    if (is_text_literal) return literal.text;
    return plain_value(literal.text);
  };
  const Type& target = parameter.target;
  switch (target.kind) {
    case TypeKind::null:
      return own_value();
    case TypeKind::text:
      return text_literal(literal, parameter);
    case TypeKind::integer:
      return std::visit(ToInteger{target.precision}, own_value());
    case TypeKind::decimal:
      // A number that meets no column keeps the decimals that it is written with.
      if (!is_text_literal && target == literal_type(LiteralKind::decimal)) return own_value();
      return std::visit(ToDecimal{target}, own_value());
    case TypeKind::real:
      return is_text_literal ? to_real(literal.text) : Val(literal.text);
    case TypeKind::date:
      return to_date(literal.text);
    case TypeKind::time:
      return to_time(literal.text);
  }
  return {};
}

std::int64_t to_integer(std::int64_t value, int digits) {
  if (digits == 1) return value != 0 ? 1 : 0;
  const auto [lowest, highest] = integer_range(digits);
  if (value < lowest || value > highest) throw_overflow(integer_name(digits));
  return value;
}

std::int64_t to_integer(double value, int digits) {
  constexpr double bound = 9223372036854775808.0;
  if (!(value > -bound && value < bound)) throw_overflow(integer_name(digits));
  return to_integer(static_cast<std::int64_t>(value), digits);
}

std::int64_t to_integer(std::string_view text, int digits) {
  const std::string_view number = trimmed(text);
  if (number.empty()) return 0;
  if (const auto whole = whole_number(number)) return to_integer(*whole, digits);
  if (holds_digits_alone(number)) throw_overflow(integer_name(digits));
  throw_value("Conversion failed when converting the varchar value '" + std::string(text) +
              "' to data type " + integer_name(digits) + ".");
}

StoredValue to_decimal(double value, const Type& type) {
  const double rounded = round_decimal(value, type.scale);
  if (!(std::fabs(rounded) < std::pow(10.0, type.precision - type.scale)))
    throw_overflow("numeric");
  constexpr double exact = 9.2e18;
  if (type.scale == 0 && std::fabs(rounded) < exact) return static_cast<std::int64_t>(rounded);
  return rounded;
}

StoredValue to_decimal(std::int64_t value, const Type& type) {
  if (!(std::fabs(static_cast<double>(value)) < std::pow(10.0, type.precision - type.scale))) {
    throw_overflow("numeric");
  }
  return type.scale == 0 ? StoredValue(value) : StoredValue(static_cast<double>(value));
}

StoredValue to_decimal(std::string_view text, const Type& type) {
  const std::string_view number = trimmed(text);
  if (const auto whole = whole_number(number)) return to_decimal(*whole, type);
  if (!tela::is_numeric(number)) throw_value("Error converting data type varchar to numeric.");
  return to_decimal(Val(number), type);
}

double to_real(std::string_view text) {
  const std::string_view number = trimmed(text);
  if (number.empty()) return 0;
  if (!tela::is_numeric(number)) throw_value("Error converting data type varchar to float.");
  return Val(number);
}

std::string number_text(double value) {
  return plain_number(value);
}

std::string fit_text(std::string_view text, int length, std::string_view table,
                     std::string_view column) {
  const std::string_view kept = first_characters(text, static_cast<std::size_t>(length));
  if (without_trailing_blanks(text.substr(kept.size())).empty()) return std::string(kept);
  if (table.empty()) throw_value("String or binary data would be truncated.");
  throw_value("String or binary data would be truncated in table '" + std::string(table) +
              "', column '" + std::string(column) + "'. Truncated value: '" + std::string(kept) +
              "'.");
}

std::string str(double value, int width, int decimals) {
  constexpr int most_width = 8000;
  constexpr int most_decimals = 16;
  const auto room = static_cast<std::size_t>(std::clamp(width, 0, most_width));
  const std::string number = fixed_decimal(value, std::clamp(decimals, 0, most_decimals));
  if (number.size() <= room) return std::string(room - number.size(), ' ') + number;
  return std::string(room, '*');
}

}  // namespace tela::tsql
