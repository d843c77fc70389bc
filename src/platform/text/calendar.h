// The values of a day and of a time of day, as the catalogue stores them and the screens show them.
#pragma once

#include <chrono>
#include <compare>

namespace tela {

/// A calendar day without a time of day.
using Date = std::chrono::year_month_day;

/// A time of day to the second, 00:00:00 to 23:59:59.
struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
  auto operator<=>(const TimeOfDay&) const = default;
};

}  // namespace tela
