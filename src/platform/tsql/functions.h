// The functions of the language: what they take, what they give, and what they are called in the
// engine. One row a function; the binder and the emitter read the same table.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tela::tsql {

enum class FunctionKind {
  plain,      ///< the engine's function of the arguments as they are
  aggregate,  ///< count, sum, avg, min, max
  choice,     ///< isnull, coalesce, nullif: the arguments share a type
  date_field  ///< year, month, day: read off the digits of the stored date
};

enum class ArgRule { any, number, whole, text, date, date_part };

/// What type the result has. `first` is that of the first argument, `common` that of all.
enum class ResultRule { first, common, integer, text, date, aggregate };

struct Function {
  std::string_view name;         ///< lower case
  std::string_view engine_name;  ///< for a date field the arithmetic behind the stored date
  FunctionKind kind;
  ResultRule result;
  std::size_t least_args;
  std::vector<ArgRule> args;  ///< as many as there can be; the last one of coalesce repeats
};

/// The function of that name, without regard to case; null if there is none.
const Function* find_function(std::string_view name);

/// The part of a date that a name or its short form means: "mm" is month. Empty if it is none.
std::string_view date_part_name(std::string_view written);

}  // namespace tela::tsql
