#include "platform/embedded/exact_sum.h"

#include <cmath>

namespace tela::embedded {

double ExactSum::real() const {
  ExactSum all = *this;
  all.add_fraction(static_cast<double>(whole));
  // Beyond the largest double there is no rest to keep.
  return std::isfinite(all.high) ? all.high + all.low : all.high;
}

}  // namespace tela::embedded
