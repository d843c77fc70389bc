#include "platform/tsql/types.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "platform/tsql/lexer.h"

namespace tela::tsql {
namespace {

constexpr int most_characters = 8000;
constexpr int most_digits = 38;
constexpr int default_digits = 18;

// A type's name and the type without its lengths. `max` stands for texts without a limit.
struct NamedType {
  std::string_view name;
  Type type;
};

constexpr std::array<NamedType, 24> named_types{{
    {"bit", {TypeKind::integer, 0, 1, 0}},
    {"tinyint", {TypeKind::integer, 0, 3, 0}},
    {"smallint", {TypeKind::integer, 0, 5, 0}},
    {"int", int_type},
    {"integer", int_type},
    {"bigint", bigint_type},
    {"numeric", {TypeKind::decimal, 0, default_digits, 0}},
    {"decimal", {TypeKind::decimal, 0, default_digits, 0}},
    {"dec", {TypeKind::decimal, 0, default_digits, 0}},
    {"money", {TypeKind::decimal, 0, 19, 4}},
    {"smallmoney", {TypeKind::decimal, 0, 10, 4}},
    {"float", real_type},
    {"real", real_type},
    {"char", {TypeKind::text, 1, 0, 0}},
    {"varchar", {TypeKind::text, 1, 0, 0}},
    {"nchar", {TypeKind::text, 1, 0, 0}},
    {"nvarchar", {TypeKind::text, 1, 0, 0}},
    {"text", text_type},
    {"ntext", text_type},
    {"date", date_type},
    {"datetime", date_type},
    {"datetime2", date_type},
    {"smalldatetime", date_type},
    {"time", time_type},
}};

[[noreturn]] void throw_unknown_type(std::string_view name) {
  throw CompileError(CompileError::Kind::unknown_name,
                     "Type " + std::string(name) + " is not a defined system type.");
}

// The numbers in the brackets of a written type; max is 0.
std::vector<int> lengths_of(std::string_view written, std::size_t bracket) {
  std::vector<int> lengths;
  while (bracket < written.size() && written[bracket] != ')') {
    const std::size_t end = written.find_first_of(",)", bracket + 1);
    if (end == std::string_view::npos) throw_unknown_type(written);
    std::string_view part = written.substr(bracket + 1, end - bracket - 1);
    part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
    int length = 0;
    if (!same_name(part, "max")) {
      const auto [rest, error] = std::from_chars(part.data(), part.data() + part.size(), length);
      if (error != std::errc{} || length < 0 || rest == part.data()) throw_unknown_type(written);
    }
    lengths.push_back(length);
    bracket = end;
  }
  return lengths;
}

bool set_lengths(Type& type, const std::vector<int>& lengths) {
  switch (type.kind) {
    case TypeKind::text:
      type.length = lengths.front();
      return lengths.size() == 1 && type.length <= most_characters;
    case TypeKind::decimal:
      type.precision = lengths.front();
      type.scale = lengths.size() > 1 ? lengths[1] : 0;
      return lengths.size() <= 2 && type.precision >= 1 && type.precision <= most_digits &&
             type.scale <= type.precision;
    case TypeKind::real:
    case TypeKind::time:
    case TypeKind::date:
      return lengths.size() == 1;
    case TypeKind::integer:
    case TypeKind::null:
      break;
  }
  return false;
}

int wider_length(const Type& left, const Type& right) {
  return left.length == 0 || right.length == 0 ? 0 : std::max(left.length, right.length);
}

}  // namespace

Type parse_type_name(std::string_view declared) {
  const std::size_t bracket = declared.find('(');
  std::string_view name = declared.substr(0, bracket);
  while (name.ends_with(' ')) name.remove_suffix(1);
  const auto* named = std::ranges::find_if(
      named_types, [&](const NamedType& known) { return same_name(known.name, name); });
  if (named == named_types.end()) throw_unknown_type(name);
  Type type = named->type;
  if (bracket == std::string_view::npos) return type;
  const std::vector<int> lengths = lengths_of(declared, bracket);
  if (lengths.empty() || !set_lengths(type, lengths)) throw_unknown_type(declared);
  return type;
}

std::string column_declaration(const std::string& written) {
  const Type type = parse_type_name(written);
  return type.kind == TypeKind::text && type.length == 0 ? "text" : written;
}

bool is_numeric(const Type& type) {
  return type.kind == TypeKind::integer || type.kind == TypeKind::decimal ||
         type.kind == TypeKind::real;
}

bool is_text(const Type& type) {
  return type.kind == TypeKind::text;
}

bool is_calendar(const Type& type) {
  return type.kind == TypeKind::date || type.kind == TypeKind::time;
}

bool is_whole(const Type& type) {
  return type.kind == TypeKind::integer || (type.kind == TypeKind::decimal && type.scale == 0);
}

std::string type_name(const Type& type) {
  switch (type.kind) {
    case TypeKind::null:
      return "NULL";
    case TypeKind::integer:
      return type.precision == 1    ? "bit"
             : type.precision == 3  ? "tinyint"
             : type.precision == 5  ? "smallint"
             : type.precision == 19 ? "bigint"
                                    : "int";
    case TypeKind::decimal:
      return "numeric";
    case TypeKind::real:
      return "float";
    case TypeKind::text:
      return "varchar";
    case TypeKind::date:
      return "date";
    case TypeKind::time:
      return "time";
  }
  return "";
}

Type literal_type(LiteralKind kind) {
  switch (kind) {
    case LiteralKind::integer:
      return int_type;
    case LiteralKind::decimal:
      return {TypeKind::decimal, 0, most_digits, 6};
    case LiteralKind::real:
      return real_type;
    case LiteralKind::text:
      break;
  }
  return text_type;
}

void throw_type_clash(const Type& source, const Type& target, std::size_t position) {
  throw CompileError(CompileError::Kind::value,
                     "Operand type clash: " + type_name(source) + " is incompatible with " +
                         type_name(target) + ".",
                     position);
}

Type common_type(const Type& left, const Type& right, std::size_t position) {
  if (left.kind == TypeKind::null) return right;
  if (right.kind == TypeKind::null) return left;
  if (left.kind == right.kind) {
    return {left.kind, wider_length(left, right), std::max(left.precision, right.precision),
            std::max(left.scale, right.scale)};
  }
  if (is_calendar(left) || is_calendar(right)) {
    if (is_text(left)) return right;
    if (is_text(right)) return left;
    throw_type_clash(is_calendar(right) ? left : right, is_calendar(right) ? right : left,
                     position);
  }
  const auto& higher = left.kind > right.kind ? left : right;
  const auto& lower_one = left.kind > right.kind ? right : left;
  if (is_text(left)) return right;
  if (is_text(right)) return left;
  if (higher.kind == TypeKind::real) return higher;
  return {TypeKind::decimal, 0, std::max(higher.precision, lower_one.precision), higher.scale};
}

}  // namespace tela::tsql
