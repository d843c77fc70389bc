#include "platform/chart/value_scale.h"

#include <algorithm>
#include <cmath>

namespace tela {

namespace {

// The smallest round number that is not below `least`. Quarters of ten are left to steps from 25
// on, where they are whole.
double round_step(double least) {
  const double power = std::pow(10, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
    if (factor == 2.5 && power < 10) continue;
    if (factor * power >= least * (1 - 1e-9)) return factor * power;
  }
  return 10 * power;
}

}  // namespace

std::vector<double> ValueScale::marks() const {
  std::vector<double> all;
  const auto first = std::lround(low / step);
  const auto last = std::lround(high / step);
  for (auto mark = first; mark <= last; ++mark) all.push_back(static_cast<double>(mark) * step);
  return all;
}

int ValueScale::places(double unit_size) const {
  constexpr int kMost = 4;
  double rest = step / unit_size;
  int places = 0;
  while (places < kMost && std::abs(rest - std::round(rest)) > 1e-6) {
    rest *= 10;
    ++places;
  }
  return places;
}

ValueScale value_scale(const std::vector<double>& values, int intervals, double headroom) {
  double lowest = 0;
  double highest = 0;
  for (const double value : values) {
    lowest = std::min(lowest, value);
    highest = std::max(highest, value);
  }
  if (lowest == 0 && highest == 0) return {};
  const double both = lowest < 0 && highest > 0 ? 2 * headroom : headroom;
  const double room = (highest - lowest) * headroom / (1 - std::min(both, 0.8));
  if (highest > 0) highest += room;
  if (lowest < 0) lowest -= room;
  const double step = round_step((highest - lowest) / std::max(intervals, 1));
  return {std::floor(lowest / step + 1e-9) * step, std::ceil(highest / step - 1e-9) * step, step};
}

}  // namespace tela
