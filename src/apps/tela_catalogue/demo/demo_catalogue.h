// A demo catalogue: the trade of an invented supermarket, day by day.
//
// Everything follows from the options. The same options give the same rows in the same order on
// every machine, since chance and arithmetic are whole numbers throughout.
#pragma once

#include <cstdint>
#include <functional>

#include "apps/tela_catalogue/demo/rows.h"

namespace tela::demo {

struct DemoOptions {
  int days = 60;
  int bills_per_day = 300;  ///< on average; weekends and festivals have more
  int items = 800;
  std::uint64_t seed = 1;
  Date last_day{};
};

struct DemoSummary {
  std::int64_t bills = 0;
  std::int64_t lines = 0;  ///< of the bills at the tills
};

/// Called after each day with the number of days done.
using Progress = std::function<void(int)>;

/// Hands the rows of a demo catalogue to `sink`, the masters last, and tells what the tills sold.
/// The last bill has the number of all bills. Memory grows with the items, not with the days.
DemoSummary make_demo(const DemoOptions& options, RowSink& sink, const Progress& progress);

}  // namespace tela::demo
