#include "platform/embedded/grouping/day_parts.h"

#include <algorithm>

#include "platform/tsql/values.h"

namespace tela::embedded {
namespace {

// A week of a busy shop is read before another thread has started.
constexpr std::int64_t least_days = 8;
// More parts than threads: whoever is done early takes the next, and days without sales weigh
// nothing. Each part costs a seek.
constexpr std::int64_t least_days_a_part = 2;
constexpr std::int64_t most_parts = 32;

std::int64_t count_days(const DayPart& days) {
  return tsql::date_difference("day", days.first, days.last) + 1;
}

}  // namespace

bool is_worth_dividing(const DayPart& days) {
  return count_days(days) >= least_days;
}

std::vector<DayPart> divide(const DayPart& days) {
  std::vector<DayPart> parts;
  if (!is_worth_dividing(days)) return parts;
  const std::int64_t length = count_days(days);
  const std::int64_t count = std::min(length / least_days_a_part, most_parts);
  for (std::int64_t i = 0; i < count; ++i) {
    const std::int64_t first = tsql::date_add("day", length * i / count, days.first);
    if (i > 0) parts.back().last = first - 1;
    parts.push_back({first, days.last});
  }
  return parts;
}

}  // namespace tela::embedded
