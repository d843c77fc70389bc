#include "platform/embedded/grouping/sum_functions.h"

#include "platform/embedded/grouping/exact_sum.h"

namespace tela::embedded {
namespace {

void step(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  const int type = sqlite3_value_numeric_type(values[0]);
  if (type == SQLITE_NULL) return;
  auto* sum = static_cast<ExactSum*>(sqlite3_aggregate_context(context, sizeof(ExactSum)));
  if (sum == nullptr) return sqlite3_result_error_nomem(context);
  if (type == SQLITE_INTEGER) {
    return sum->add(std::int64_t{sqlite3_value_int64(values[0])});
  }
  sum->add(sqlite3_value_double(values[0]));
}

/// The sum of at least one value; null if there is none.
const ExactSum* finished(sqlite3_context* context) {
  return static_cast<const ExactSum*>(sqlite3_aggregate_context(context, 0));
}

void sum_result(sqlite3_context* context) {
  const ExactSum* sum = finished(context);
  if (sum == nullptr) return sqlite3_result_null(context);
  if (sum->has_fraction) return sqlite3_result_double(context, sum->real());
  if (sum->overflowed) return sqlite3_result_error(context, sum_overflow, -1);
  sqlite3_result_int64(context, sum->whole);
}

void average_result(sqlite3_context* context) {
  const ExactSum* sum = finished(context);
  if (sum == nullptr) return sqlite3_result_null(context);
  sqlite3_result_double(context, sum->mean());
}

void register_aggregate(sqlite3* database, const char* name, void (*result)(sqlite3_context*)) {
  const int code = sqlite3_create_function_v2(database, name, 1, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                              nullptr, nullptr, step, result, nullptr);
  if (code != SQLITE_OK) throw sqlite_error(database, code);
}

}  // namespace

void register_sum_functions(sqlite3* database) {
  register_aggregate(database, "tela_sum", sum_result);
  register_aggregate(database, "tela_avg", average_result);
}

}  // namespace tela::embedded
