// Chance that gives the same numbers on every machine: the standard library's distributions do not.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tela::demo {

/// A sequence of numbers that its seed fixes.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  /// A whole number from `low` to `high`, both included, each as likely.
  std::int64_t between(std::int64_t low, std::int64_t high);

  /// True `permille` times in a thousand.
  bool chance(int permille) { return between(0, 999) < permille; }

  /// One of `choices`, each as likely. There must be one.
  template <typename T>
  const T& pick(std::span<const T> choices) {
    return choices[static_cast<std::size_t>(
        between(0, static_cast<std::int64_t>(choices.size()) - 1))];
  }

  /// The index of one of `weights`, as likely as its share of their sum.
  std::size_t weighted(std::span<const int> weights);

 private:
  std::uint64_t next();

  std::uint64_t state_;
};

}  // namespace tela::demo
