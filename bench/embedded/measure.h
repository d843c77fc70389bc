// Times of repeated work, in milliseconds.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace tela::bench {

class Times {
 public:
  template <typename Work>
  void measure(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    times_.push_back(std::chrono::steady_clock::now() - start);
  }

  /// The time that `share` (0 to 1) of the runs stayed below.
  double quantile(double share) const {
    std::vector<Milliseconds> sorted = times_;
    std::sort(sorted.begin(), sorted.end());
    return sorted.at(static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1)))
        .count();
  }
  double median() const { return quantile(0.5); }

 private:
  using Milliseconds = std::chrono::duration<double, std::milli>;
  std::vector<Milliseconds> times_;
};

}  // namespace tela::bench
