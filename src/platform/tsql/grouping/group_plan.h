// What the columns of a grouped select's source mean to the client that groups them: one letter a
// column of the result. The compiler writes the letters, the embedded client reads them.
#pragma once

#include <cstddef>

namespace tela::tsql {

/// A column of the groups. Each but count_rows takes the next column of the source row; the keys
/// come first.
enum class GroupColumn : char {
  key = 'k',
  count_rows = '*',  ///< count(*)
  count = 'n',       ///< of the values that are not null, as all that follow
  sum = 's',
  average = 'a',
  whole_average = 'w',  ///< of whole numbers: the decimals are cut
  least = '<',
  greatest = '>',
};

/// The most columns that groups have.
inline constexpr std::size_t most_group_columns = 64;

}  // namespace tela::tsql
