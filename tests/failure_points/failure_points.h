// Which calls are made to fail: some of them, or with TELA_EVERY_POINT set all.
#pragma once

#include <cstdlib>
#include <functional>
#include <random>

#include "support/failing_calls.h"

namespace tela::testing {

struct FailurePoint {
  FailingCalls::Kind kind;
  int number;
  bool from_then_on;
};

/// `try_point` makes the call of that point fail and tells whether the work came to it. Every point
/// is tried until the work gets through, or `samples` of the `calls` that it makes undisturbed.
inline void try_points(FailingCalls::Kind kind, int calls, int samples,
                       const std::function<bool(const FailurePoint&)>& try_point) {
  if (std::getenv("TELA_EVERY_POINT") != nullptr) {
    for (const bool from_then_on : {false, true})
      for (int n = 1; try_point({kind, n, from_then_on}); ++n) continue;
    return;
  }
  std::mt19937 random(static_cast<unsigned>(calls));
  for (int i = 0; i < samples && calls > 0; ++i)
    try_point({kind, 1 + static_cast<int>(random() % static_cast<unsigned>(calls)), i % 2 == 1});
}

}  // namespace tela::testing
