// The common vocabulary of the retail catalogue: the till counters as screens offer them. Tables
// and columns stand in catalogue/schema.sql; statements name their coded values word for word.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tela {

/// The entry that stands for all till counters.
inline constexpr std::string_view kAllCounter = "ALL COUNTER";

/// The entries of a counter combo: "COUNTER-1" to "COUNTER-n", and last "ALL COUNTER". There is no
/// table of counters; how many a screen offers is fixed with the screen.
std::vector<std::string> counter_entries(int counters);

/// The counter's number as it goes into a statement: the entry's last character. Nothing for
/// exactly "ALL COUNTER", which puts no condition on the counter.
std::optional<std::string> counter_number(std::string_view entry);

}  // namespace tela
