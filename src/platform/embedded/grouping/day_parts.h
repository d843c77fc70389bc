// A report's days in parts that several threads share.
#pragma once

#include <cstdint>
#include <vector>

namespace tela::embedded {

/// Some days in a row: the first and the last, as yyyymmdd, with all whole numbers between them. A
/// part ends right ahead of the next one, which need not be a day of the calendar: the tills may
/// have stored what is none, and no row falls between two parts.
struct DayPart {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

/// Whether the rows of these days may be so many that reading them in parts pays.
bool is_worth_dividing(const DayPart& days);

/// The days in parts of nearly equal length, in their order; none where it is not worth it.
std::vector<DayPart> divide(const DayPart& days);

}  // namespace tela::embedded
