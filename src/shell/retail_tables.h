// The common vocabulary of the retail catalogue: the till counters as screens offer them. Tables
// and columns stand in catalogue/schema.sql; statements name their coded values word for word.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/form.h"

namespace tela {

/// The entry that stands for all till counters.
inline constexpr std::string_view kAllCounter = "ALL COUNTER";

/// The entries of a counter combo: "COUNTER-1" to "COUNTER-n", and last "ALL COUNTER". There is no
/// table of counters; how many a screen offers is fixed with the screen.
std::vector<std::string> counter_entries(int counters);

/// Takes the counter that `Combo1` shows: its number, the last character of the entry, goes into
/// `tCounter` if the form has one, and comes back as it stands in a statement. Nothing for exactly
/// "ALL COUNTER", which puts no condition on the counter. Throws ValueError if the last character
/// is no digit.
std::optional<std::string> take_counter(Form& form);

}  // namespace tela
