#include "platform/embedded/sql_functions.h"

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "platform/database/database_client.h"
#include "platform/embedded/grouping/group_module.h"
#include "platform/embedded/grouping/sum_functions.h"
#include "platform/embedded/stored_values.h"
#include "platform/embedded/text_joins.h"
#include "platform/text/letters.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "platform/text/utf8.h"
#include "platform/tsql/text_rules.h"
#include "platform/tsql/values.h"

namespace tela {
namespace {

using tsql::CompileError;
using tsql::StoredValue;

[[noreturn]] void throw_value(const std::string& message) {
  throw CompileError(CompileError::Kind::value, message);
}

// The arguments of a call; none of them is null.
class Args {
 public:
  Args(int count, sqlite3_value** values) : count_(count), values_(values) {}

  int count() const { return count_; }
  int type(int index) const { return sqlite3_value_type(values_[index]); }
  bool is_whole(int index) const { return type(index) == SQLITE_INTEGER; }
  std::int64_t whole(int index) const { return sqlite3_value_int64(values_[index]); }
  int small(int index) const { return sqlite3_value_int(values_[index]); }
  double real(int index) const { return sqlite3_value_double(values_[index]); }
  std::string_view text(int index) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(values_[index]));
    return {bytes == nullptr ? "" : bytes,
            static_cast<std::size_t>(sqlite3_value_bytes(values_[index]))};
  }

 private:
  int count_;
  sqlite3_value** values_;
};

using SqlFunction = StoredValue (*)(const Args&);

// Null if an argument is null; a rule that is broken is the statement's error.
template <SqlFunction function>
void call(sqlite3_context* context, int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return sqlite3_result_null(context);
  }
  try {
    embedded::set_result(context, function(Args(count, values)));
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

constexpr const char* divided_by_zero = "Divide by zero error encountered.";

StoredValue divide(const Args& args) {
  if (args.real(1) == 0) throw_value(divided_by_zero);
  return args.real(0) / args.real(1);
}

StoredValue divide_whole(const Args& args) {
  if (args.whole(1) == 0) throw_value(divided_by_zero);
  if (args.whole(1) == -1 && args.whole(0) == std::numeric_limits<std::int64_t>::min()) {
    throw_value("Arithmetic overflow error converting expression to data type bigint.");
  }
  return args.whole(0) / args.whole(1);
}

StoredValue remainder(const Args& args) {
  if (args.real(1) == 0) throw_value(divided_by_zero);
  if (!args.is_whole(0) || !args.is_whole(1)) return std::fmod(args.real(0), args.real(1));
  return args.whole(1) == -1 ? 0 : args.whole(0) % args.whole(1);
}

StoredValue round_number(const Args& args) {
  if (!args.is_whole(0)) return round_decimal(args.real(0), args.small(1));
  if (args.small(1) >= 0) return args.whole(0);
  return static_cast<std::int64_t>(round_decimal(args.real(0), args.small(1)));
}

StoredValue floor_of(const Args& args) {
  return args.is_whole(0) ? StoredValue(args.whole(0)) : StoredValue(std::floor(args.real(0)));
}

StoredValue ceiling_of(const Args& args) {
  return args.is_whole(0) ? StoredValue(args.whole(0)) : StoredValue(std::ceil(args.real(0)));
}

StoredValue str(const Args& args) {
  constexpr int default_width = 10;
  return tsql::str(args.real(0), args.count() > 1 ? args.small(1) : default_width,
                   args.count() > 2 ? args.small(2) : 0);
}

StoredValue to_int(const Args& args) {
  const int digits = args.small(1);
  switch (args.type(0)) {
    case SQLITE_INTEGER:
      return tsql::to_integer(args.whole(0), digits);
    case SQLITE_FLOAT:
      return tsql::to_integer(args.real(0), digits);
    default:
      return tsql::to_integer(args.text(0), digits);
  }
}

StoredValue to_decimal(const Args& args) {
  const tsql::Type type{tsql::TypeKind::decimal, 0, args.small(1), args.small(2)};
  switch (args.type(0)) {
    case SQLITE_INTEGER:
      return tsql::to_decimal(args.whole(0), type);
    case SQLITE_FLOAT:
      return tsql::to_decimal(args.real(0), type);
    default:
      return tsql::to_decimal(args.text(0), type);
  }
}

StoredValue to_real(const Args& args) {
  return args.type(0) == SQLITE_TEXT ? tsql::to_real(args.text(0)) : args.real(0);
}

StoredValue to_date(const Args& args) {
  return tsql::to_date(args.text(0));
}
StoredValue to_time(const Args& args) {
  return tsql::to_time(args.text(0));
}
StoredValue number_text(const Args& args) {
  return tsql::number_text(args.real(0));
}
StoredValue date_text(const Args& args) {
  return tsql::date_text(args.whole(0), args.small(1));
}
StoredValue time_text(const Args& args) {
  return tsql::time_text(args.whole(0));
}

StoredValue fit_text(const Args& args) {
  return tsql::fit_text(args.text(0), args.small(1), args.text(2), args.text(3));
}

StoredValue date_name(const Args& args) {
  return tsql::date_name(args.text(0), args.whole(1));
}
StoredValue date_part(const Args& args) {
  return tsql::date_part(args.text(0), args.whole(1));
}

StoredValue date_add(const Args& args) {
  return tsql::date_add(args.text(0), args.whole(1), args.whole(2));
}

StoredValue date_difference(const Args& args) {
  return tsql::date_difference(args.text(0), args.whole(1), args.whole(2));
}

StoredValue today(const Args&) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return std::int64_t{(local.tm_year + 1900) * 10000 + (local.tm_mon + 1) * 100 + local.tm_mday};
}

StoredValue like(const Args& args) {
  return std::int64_t{tsql::matches_like(args.text(0), args.text(1))};
}

StoredValue length(const Args& args) {
  return static_cast<std::int64_t>(character_count(without_trailing_blanks(args.text(0))));
}

StoredValue upper(const Args& args) {
  return upper_case(args.text(0));
}
StoredValue lower(const Args& args) {
  return lower_case(args.text(0));
}

// Characters from a position (from 1) on; positions ahead of the text count, but give nothing.
std::string slice(std::string_view text, std::int64_t start, std::int64_t count) {
  if (count < 0) {
    throw_value("Invalid length parameter passed to the LEFT, RIGHT or SUBSTRING function.");
  }
  const std::int64_t end = start > std::numeric_limits<std::int64_t>::max() - count
                               ? std::numeric_limits<std::int64_t>::max()
                               : start + count;
  const std::int64_t first = std::max<std::int64_t>(start, 1);
  if (end <= first) return {};
  text.remove_prefix(first_characters(text, static_cast<std::size_t>(first - 1)).size());
  return std::string(first_characters(text, static_cast<std::size_t>(end - first)));
}

StoredValue substring(const Args& args) {
  return slice(args.text(0), args.whole(1), args.whole(2));
}
StoredValue left(const Args& args) {
  return slice(args.text(0), 1, args.whole(1));
}

StoredValue right(const Args& args) {
  const auto size = static_cast<std::int64_t>(character_count(args.text(0)));
  return slice(args.text(0), std::max<std::int64_t>(size - args.whole(1), 0) + 1, args.whole(1));
}

// The one value of a subquery; a second row is an error.
struct OnlyValue {
  sqlite3_value* value;
};

void only_step(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  auto* state = static_cast<OnlyValue*>(sqlite3_aggregate_context(context, sizeof(OnlyValue)));
  if (state == nullptr) return sqlite3_result_error_nomem(context);
  if (state->value != nullptr) {
    sqlite3_result_error(context,
                         "Subquery returned more than 1 value. This is not permitted when the "
                         "subquery follows =, !=, <, <= , >, >= or when the subquery is used as an "
                         "expression.",
                         -1);
    return;
  }
  state->value = sqlite3_value_dup(values[0]);
}

void only_final(sqlite3_context* context) {
  const auto* state = static_cast<OnlyValue*>(sqlite3_aggregate_context(context, 0));
  if (state == nullptr || state->value == nullptr) return sqlite3_result_null(context);
  sqlite3_result_value(context, state->value);
  sqlite3_value_free(state->value);
}

struct Registration {
  const char* name;
  int arguments;
  void (*function)(sqlite3_context*, int, sqlite3_value**);
};

// None is declared deterministic: the engine computes such calls ahead of the rows, and an error
// would then come from a row that is not there.
constexpr std::array<Registration, 30> registrations{{
    {"tela_div", 2, call<divide>},
    {"tela_int_div", 2, call<divide_whole>},
    {"tela_mod", 2, call<remainder>},
    {"tela_round", 2, call<round_number>},
    {"tela_floor", 1, call<floor_of>},
    {"tela_ceiling", 1, call<ceiling_of>},
    {"tela_str", 1, call<str>},
    {"tela_str", 2, call<str>},
    {"tela_str", 3, call<str>},
    {"tela_to_int", 2, call<to_int>},
    {"tela_to_decimal", 3, call<to_decimal>},
    {"tela_to_real", 1, call<to_real>},
    {"tela_to_date", 1, call<to_date>},
    {"tela_to_time", 1, call<to_time>},
    {"tela_number_text", 1, call<number_text>},
    {"tela_date_text", 2, call<date_text>},
    {"tela_time_text", 1, call<time_text>},
    {"tela_fit_text", 4, call<fit_text>},
    {"tela_datename", 2, call<date_name>},
    {"tela_datepart", 2, call<date_part>},
    {"tela_dateadd", 3, call<date_add>},
    {"tela_datediff", 3, call<date_difference>},
    {"tela_getdate", 0, call<today>},
    {"tela_like", 2, call<like>},
    {"tela_upper", 1, call<upper>},
    {"tela_lower", 1, call<lower>},
    {"tela_len", 1, call<length>},
    {"tela_substring", 3, call<substring>},
    {"tela_left", 2, call<left>},
    {"tela_right", 2, call<right>},
}};

using Comparison = int (*)(std::string_view, std::string_view);

template <Comparison compare>
int collate(void* /*data*/, int left_size, const void* left, int right_size, const void* right) {
  return compare({static_cast<const char*>(left), static_cast<std::size_t>(left_size)},
                 {static_cast<const char*>(right), static_cast<std::size_t>(right_size)});
}

void require_ok(sqlite3* database, int code) {
  if (code == SQLITE_OK) return;
  throw DatabaseError(
      DatabaseError::Kind::other,
      std::string("Cannot set up the engine's functions: ") + sqlite3_errmsg(database), code);
}

}  // namespace

void register_sql_functions(sqlite3* database) {
  constexpr int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS;
  for (const Registration& entry : registrations) {
    require_ok(database,
               sqlite3_create_function_v2(database, entry.name, entry.arguments, flags, nullptr,
                                          entry.function, nullptr, nullptr, nullptr));
  }
  require_ok(database, sqlite3_create_function_v2(database, "tela_only", 1, flags, nullptr, nullptr,
                                                  only_step, only_final, nullptr));
  require_ok(database, sqlite3_create_collation_v2(database, "TELA", SQLITE_UTF8, nullptr,
                                                   collate<tsql::compare_texts>, nullptr));
  require_ok(database, sqlite3_create_collation_v2(database, "TELA_SPELLING", SQLITE_UTF8, nullptr,
                                                   collate<tsql::compare_spellings>, nullptr));
  embedded::hash_no_texts(database);
  embedded::register_sum_functions(database);
  embedded::register_groups(database);
}

}  // namespace tela
