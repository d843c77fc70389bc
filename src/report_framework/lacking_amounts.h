// What the totals of a list lack: the amounts that the database wrote as asterisks, since they are
// too wide for the text that the statement asks for. They count as 0 in the total.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "report_framework/grid_columns.h"

namespace tela {

/// Whether a text is a number too wide for its column: asterisks and blanks alone.
bool is_overflow(std::string_view text);

/// The statement with room for every amount: each `str(x,width,places)` gets the greatest width.
/// Quoted texts stay as they are.
std::string with_room_for_amounts(std::string_view sql);

/// The sums of what the marked cells stand for, by their column; empty where it cannot be known.
using LackingAmounts = std::map<int, double>;

/// Reads the marked cells of `grid` in `wide`, the rows of the same list with room for every
/// amount. Nothing is known if it has other rows: the number of rows and the key of each marked row
/// (the first field that the list shows) must agree.
LackingAmounts lacking_amounts(const Grid& grid, const GridColumns& columns, Recordset& wide);

/// The words under the list. `instead` names the reports that show the whole amounts, or is empty.
std::string lacking_note(const Form& form, const Grid& grid, const GridColumns& columns,
                         const LackingAmounts& lacking, const std::string& instead);

}  // namespace tela
