// How the rows of a report's days are divided among several threads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/embedded/group_rows.h"

namespace tela::embedded {

/// Some days in a row, as yyyymmdd, or some rows by their numbers; both ends are part of it.
struct Part {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

/// A call's rows in parts.
struct Division {
  /// The call's, of the rows between its parameters `first` and `last`.
  std::string source;
  int first = 0;
  int last = 0;
  std::vector<Part> parts;  ///< nearly equal; none where dividing does not pay
};

/// Whether the rows of these days may be so many that reading them in parts pays.
bool is_worth_dividing(const Part& days);

/// The days in parts, in their order; none where it is not worth it.
std::vector<Part> parts_of_days(const Part& days);
/// All row numbers in parts, in their order, of nearly equal length from the first row to the last.
std::vector<Part> parts_of_rows(const Part& rows);

/// By days, which an index leads to. Nearly all that a table holds is read faster as it lies: then
/// by rows.
Division divide(sqlite3* database, const GroupCall& call);

}  // namespace tela::embedded
