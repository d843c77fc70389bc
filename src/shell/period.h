// The period of a report, as its statements take it.
#pragma once

#include <string>
#include <string_view>

namespace tela {

/// The mask of days in statements.
inline constexpr std::string_view kSqlDateMask = "dd/mmm/yyyy";

/// The first and the last day, both counted, under the mask of statements. A report of one day has
/// it in both.
struct Period {
  std::string from;
  std::string to;
};

}  // namespace tela
