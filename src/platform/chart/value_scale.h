// The scale of a chart's values: round steps, with zero where it belongs.
#pragma once

#include <vector>

namespace tela {

/// A scale from `low` to `high`, both whole multiples of `step`.
struct ValueScale {
  double low = 0;
  double high = 1;
  double step = 1;

  /// The marks from `low` to `high`.
  std::vector<double> marks() const;
  /// How many decimals a mark has in a unit of that size.
  int places(double unit_size) const;
};

/// The scale that holds zero and every value, in about `intervals` steps of 1, 2, 2.5 or 5 times a
/// power of ten. `headroom` is the share of the scale's height to be left free for a label beyond
/// the highest value, and beyond the lowest one if that is below zero.
ValueScale value_scale(const std::vector<double>& values, int intervals, double headroom);

}  // namespace tela
