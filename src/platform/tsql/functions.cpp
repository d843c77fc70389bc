#include "platform/tsql/functions.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/tsql/lexer.h"

namespace tela::tsql {
namespace {

using Kind = FunctionKind;
using Arg = ArgRule;
using Result = ResultRule;

const std::vector<Function>& functions() {
  static const std::vector<Function> table{
      {"count", "count", Kind::aggregate, Result::aggregate, 1, {Arg::any}},
      {"sum", "tela_sum", Kind::aggregate, Result::aggregate, 1, {Arg::any}},
      {"avg", "tela_avg", Kind::aggregate, Result::aggregate, 1, {Arg::any}},
      {"min", "min", Kind::aggregate, Result::aggregate, 1, {Arg::any}},
      {"max", "max", Kind::aggregate, Result::aggregate, 1, {Arg::any}},

      {"isnull", "ifnull", Kind::choice, Result::first, 2, {Arg::any, Arg::any}},
      {"coalesce", "coalesce", Kind::choice, Result::common, 2, {Arg::any, Arg::any}},
      {"nullif", "nullif", Kind::choice, Result::first, 2, {Arg::any, Arg::any}},

      {"round", "tela_round", Kind::plain, Result::first, 2, {Arg::number, Arg::whole}},
      {"abs", "abs", Kind::plain, Result::first, 1, {Arg::number}},
      {"floor", "tela_floor", Kind::plain, Result::first, 1, {Arg::number}},
      {"ceiling", "tela_ceiling", Kind::plain, Result::first, 1, {Arg::number}},
      {"str", "tela_str", Kind::plain, Result::text, 1, {Arg::number, Arg::whole, Arg::whole}},

      {"upper", "tela_upper", Kind::plain, Result::text, 1, {Arg::text}},
      {"lower", "tela_lower", Kind::plain, Result::text, 1, {Arg::text}},
      {"ltrim", "ltrim", Kind::plain, Result::text, 1, {Arg::text}},
      {"rtrim", "rtrim", Kind::plain, Result::text, 1, {Arg::text}},
      {"trim", "trim", Kind::plain, Result::text, 1, {Arg::text}},
      {"len", "tela_len", Kind::plain, Result::integer, 1, {Arg::text}},
      {"substring",
       "tela_substring",
       Kind::plain,
       Result::text,
       3,
       {Arg::text, Arg::whole, Arg::whole}},
      {"left", "tela_left", Kind::plain, Result::text, 2, {Arg::text, Arg::whole}},
      {"right", "tela_right", Kind::plain, Result::text, 2, {Arg::text, Arg::whole}},

      {"year", "/ 10000", Kind::date_field, Result::integer, 1, {Arg::date}},
      {"month", "/ 100 % 100", Kind::date_field, Result::integer, 1, {Arg::date}},
      {"day", "% 100", Kind::date_field, Result::integer, 1, {Arg::date}},
      {"datename", "tela_datename", Kind::plain, Result::text, 2, {Arg::date_part, Arg::date}},
      {"datepart", "tela_datepart", Kind::plain, Result::integer, 2, {Arg::date_part, Arg::date}},
      {"dateadd",
       "tela_dateadd",
       Kind::plain,
       Result::date,
       3,
       {Arg::date_part, Arg::whole, Arg::date}},
      {"datediff",
       "tela_datediff",
       Kind::plain,
       Result::integer,
       3,
       {Arg::date_part, Arg::date, Arg::date}},
      {"getdate", "tela_getdate", Kind::plain, Result::date, 0, {}},
  };
  return table;
}

// Every way to write a part of a date, and its name.
constexpr std::array<std::pair<std::string_view, std::string_view>, 20> date_parts{{
    {"year", "year"},
    {"yy", "year"},
    {"yyyy", "year"},
    {"quarter", "quarter"},
    {"qq", "quarter"},
    {"q", "quarter"},
    {"month", "month"},
    {"mm", "month"},
    {"m", "month"},
    {"day", "day"},
    {"dd", "day"},
    {"d", "day"},
    {"dayofyear", "dayofyear"},
    {"dy", "dayofyear"},
    {"y", "dayofyear"},
    {"weekday", "weekday"},
    {"dw", "weekday"},
    {"week", "week"},
    {"wk", "week"},
    {"ww", "week"},
}};

}  // namespace

const Function* find_function(std::string_view name) {
  const auto& table = functions();
  const auto found = std::ranges::find_if(
      table, [&](const Function& function) { return same_name(function.name, name); });
  return found == table.end() ? nullptr : &*found;
}

std::string_view date_part_name(std::string_view written) {
  const auto* found = std::ranges::find_if(
      date_parts, [&](const auto& part) { return same_name(part.first, written); });
  return found == date_parts.end() ? std::string_view{} : found->second;
}

}  // namespace tela::tsql
