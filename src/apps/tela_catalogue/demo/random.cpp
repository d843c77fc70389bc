#include "apps/tela_catalogue/demo/random.h"

#include <numeric>

namespace tela::demo {

// Steele, Lea and Flood's SplitMix64: one addition and a mix, with a period of 2^64.
std::uint64_t Random::next() {
  state_ += 0x9E3779B97F4A7C15u;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
  return mixed ^ (mixed >> 31);
}

// The ranges asked for are far below 2^64, so that the remainder's bias does not show.
std::int64_t Random::between(std::int64_t low, std::int64_t high) {
  const auto count = static_cast<std::uint64_t>(high - low) + 1;
  return low + static_cast<std::int64_t>(next() % count);
}

std::size_t Random::weighted(std::span<const int> weights) {
  std::int64_t left = between(0, std::accumulate(weights.begin(), weights.end(), 0) - 1);
  std::size_t index = 0;
  while (left >= weights[index]) left -= weights[index++];
  return index;
}

}  // namespace tela::demo
