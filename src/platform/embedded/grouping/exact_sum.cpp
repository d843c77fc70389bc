#include "platform/embedded/grouping/exact_sum.h"

#include <algorithm>
#include <cmath>

#include "platform/text/number_text.h"

namespace tela::embedded {
namespace {

// The digits that a double keeps of any decimal.
constexpr int digits = 15;

/// How many decimals a number of that size has; may be below 0.
int decimals_of(double size) {
  return digits - 1 - static_cast<int>(std::floor(std::log10(size)));
}

}  // namespace

double ExactSum::real() const {
  ExactSum all = *this;
  all.add_fraction(static_cast<double>(whole));
  // Beyond the largest double there is no rest to keep.
  const double sum = std::isfinite(all.high) ? all.high + all.low : all.high;
  const double size = std::max(largest, std::fabs(sum));
  const int decimals = size > 0 && std::isfinite(size) ? decimals_of(size) : 0;
  return decimals > 0 ? round_decimal(sum, decimals) : sum;
}

}  // namespace tela::embedded
