// What looks wrong in the data of a catalogue: questions whose answer should be no row at all.
#pragma once

#include <span>
#include <string_view>

namespace tela {

/// One question. The statement gives the oddities in order, at most `most_examples` of them, each
/// named by its columns.
struct DataCheck {
  std::string_view finding;  ///< what the rows are, for the user
  std::string_view statement;
};

/// The `top` of every statement: more oddities than that are not counted.
inline constexpr int most_examples = 1000;

std::span<const DataCheck> data_checks();

}  // namespace tela
