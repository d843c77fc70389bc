// What the server does with types: names, classes and precedence.
#pragma once

#include <string>
#include <string_view>

#include "platform/tsql/compiler.h"

namespace tela::tsql {

inline constexpr Type null_type{};
inline constexpr Type int_type{TypeKind::integer, 0, 10, 0};
inline constexpr Type bigint_type{TypeKind::integer, 0, 19, 0};
inline constexpr Type real_type{TypeKind::real, 0, 0, 0};
inline constexpr Type text_type{TypeKind::text, 0, 0, 0};
inline constexpr Type date_type{TypeKind::date, 0, 0, 0};
inline constexpr Type time_type{TypeKind::time, 0, 0, 0};

bool is_numeric(const Type& type);
bool is_text(const Type& type);
bool is_calendar(const Type& type);
/// Whether values of the type are stored as whole numbers: integers and decimals without decimals.
bool is_whole(const Type& type);

/// How the type is called in a message: "int", "varchar", "date".
std::string type_name(const Type& type);

/// The type of a literal on its own. It follows from the literal's kind alone, since statements
/// that differ in literals share one compilation.
Type literal_type(LiteralKind kind);

/// The type that values of both types are brought to, the one of higher precedence: text, integer,
/// decimal, real, date or time. Throws CompileError if they cannot meet, as a number and a date.
Type common_type(const Type& left, const Type& right, std::size_t position);

/// The declaration that a column of this T-SQL type gets in the engine's schema: the type as it is
/// written, in a form that the engine's grammar takes too.
std::string column_declaration(const std::string& written);

/// The error for a number and a date (or a date and a time) that meet.
[[noreturn]] void throw_type_clash(const Type& source, const Type& target, std::size_t position);

}  // namespace tela::tsql
