// The definition of a catalogue: the T-SQL scripts of the folder catalogue/, compiled into the
// program.
#pragma once

#include <span>
#include <string_view>

namespace tela {

/// The scripts that make an empty catalogue ready for use, in the order in which they run: tables,
/// staging tables, procedures, start-up rows and, last, indexes. Batches end in a line GO.
std::span<const std::string_view> catalogue_scripts();

}  // namespace tela
