// Money in paise and quantities in thousandths, as whole numbers, so that sums are exact and the
// same everywhere. The catalogue holds them as floats of rupees and of units.
#pragma once

#include <cstdint>

namespace tela::demo {

using Paise = std::int64_t;
using Milli = std::int64_t;

inline constexpr Paise rupee = 100;
inline constexpr Milli unit = 1000;

/// The quotient rounded half away from zero. `divisor` is above 0.
constexpr std::int64_t divided(std::int64_t number, std::int64_t divisor) {
  return number < 0 ? -((-number + divisor / 2) / divisor) : (number + divisor / 2) / divisor;
}

/// What `quantity` costs at `rate` a unit.
constexpr Paise value_of(Paise rate, Milli quantity) {
  return divided(rate * quantity, unit);
}

/// `percent` of `amount`; the percentage in hundredths of a percent.
constexpr Paise hundredths_of(Paise amount, std::int64_t percent_hundredths) {
  return divided(amount * percent_hundredths, 10'000);
}

/// `percent` of `amount`.
constexpr Paise percent_of(Paise amount, std::int64_t percent) {
  return divided(amount * percent, 100);
}

constexpr double in_rupees(Paise amount) {
  return static_cast<double>(amount) / 100;
}
constexpr double in_units(Milli quantity) {
  return static_cast<double>(quantity) / 1000;
}

}  // namespace tela::demo
