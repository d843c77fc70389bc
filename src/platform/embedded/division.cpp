#include "platform/embedded/division.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "platform/embedded/stored_values.h"
#include "platform/tsql/values.h"

namespace tela::embedded {
namespace {

// A week of a busy shop is read before another thread has started.
constexpr std::int64_t least_days = 8;
// More parts than threads: whoever is done early takes the next, and days without sales weigh
// nothing. Each part costs a seek.
constexpr std::int64_t least_days_a_part = 2;
constexpr std::int64_t most_parts = 32;

std::int64_t count_days(const Part& days) {
  return tsql::date_difference("day", days.first, days.last) + 1;
}

/// The first and the last row of a table.
struct Ends {
  Part rows;
  Part days;
};

std::optional<Ends> ends_of(sqlite3* database, const GroupCall& call) {
  const std::string rows =
      "(SELECT rowid, " + quoted_name(call.day_column) + " FROM main." + quoted_name(call.table);
  SelectHandle select;
  const int code = prepare(database,
                           "SELECT * FROM " + rows + " ORDER BY rowid LIMIT 1) UNION ALL " +
                               "SELECT * FROM " + rows + " ORDER BY rowid DESC LIMIT 1)",
                           select);
  Ends ends;
  for (const auto end : {&Part::first, &Part::last}) {
    if (code != SQLITE_OK || sqlite3_step(select.get()) != SQLITE_ROW) return std::nullopt;
    if (sqlite3_column_type(select.get(), 1) != SQLITE_INTEGER) return std::nullopt;
    ends.rows.*end = sqlite3_column_int64(select.get(), 0);
    ends.days.*end = sqlite3_column_int64(select.get(), 1);
  }
  return ends;
}

// Bills come in the order of their dates: the table's first and last row tell its days nearly, and
// nothing but speed hangs on it.
bool are_nearly_all(const Part& days, const Part& all) {
  const Part both{std::max(days.first, all.first), std::min(days.last, all.last)};
  return count_days(both) * 4 >= count_days(all) * 3;
}

Division by_days(const GroupCall& call, const Part& days) {
  return {std::string(call.source), call.first_day, call.last_day, parts_of_days(days)};
}

Division by_rows(const GroupCall& call, const Part& rows) {
  const int first = static_cast<int>(call.parameters.size()) + 1;
  const int last = first + 1;
  return {std::string(call.source) + " AND rowid BETWEEN ?" + std::to_string(first) + " AND ?" +
              std::to_string(last),
          first, last, parts_of_rows(rows)};
}

std::int64_t day(const GroupCall& call, int parameter) {
  return sqlite3_value_int64(call.parameters[static_cast<std::size_t>(parameter) - 1]);
}

}  // namespace

bool is_worth_dividing(const Part& days) {
  return count_days(days) >= least_days;
}

std::vector<Part> parts_of_days(const Part& days) {
  std::vector<Part> parts;
  if (!is_worth_dividing(days)) return parts;
  const std::int64_t length = count_days(days);
  const std::int64_t count = std::min(length / least_days_a_part, most_parts);
  for (std::int64_t i = 0; i < count; ++i) {
    parts.push_back({tsql::date_add("day", length * i / count, days.first),
                     tsql::date_add("day", length * (i + 1) / count - 1, days.first)});
  }
  return parts;
}

// That no row is left out does not hang on what the first and the last are thought to be.
std::vector<Part> parts_of_rows(const Part& rows) {
  using Limits = std::numeric_limits<std::int64_t>;
  const std::int64_t first = std::clamp(rows.first, Limits::min() / 2, Limits::max() / 2);
  const std::int64_t last = std::clamp(rows.last, first, Limits::max() / 2);
  const std::int64_t step = (last - first) / most_parts + 1;
  std::vector<Part> parts;
  for (std::int64_t i = 0; i < most_parts; ++i) {
    parts.push_back({first + step * i, first + step * (i + 1) - 1});
  }
  parts.front().first = Limits::min();
  parts.back().last = Limits::max();
  return parts;
}

Division divide(sqlite3* database, const GroupCall& call) {
  if (call.first_day == 0) return {};
  const Part days{day(call, call.first_day), day(call, call.last_day)};
  if (!is_worth_dividing(days)) return {};
  const auto ends = call.table.empty() ? std::nullopt : ends_of(database, call);
  const bool is_all = ends && are_nearly_all(days, ends->days);
  return is_all ? by_rows(call, ends->rows) : by_days(call, days);
}

}  // namespace tela::embedded
