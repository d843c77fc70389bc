// A block of cells as CSV, the form in which it leaves the program.
#pragma once

#include <string>

#include "platform/sheet/sheet_port.h"

namespace tela {

/// The used area of the block, RFC 4180: lines end in CRLF and all have the same number of fields;
/// an empty cell is an empty field.
std::string sheet_csv(const SheetBlock& block);

}  // namespace tela
