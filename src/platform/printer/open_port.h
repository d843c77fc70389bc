// Finds what stands behind the name of a printer port on this machine.
#pragma once

#include <memory>
#include <string_view>

#include "platform/paths/paths.h"
#include "platform/printer/printer_port.h"

namespace tela {

/// Opens the port `name`, which is one of
/// - an absolute path, or a path on a drive of the shop's machine: that file, emptied first and
/// made
///   if it is not there, or that device;
/// - a name in the ports folder, case ignored and with or without a colon behind it ("LPT1:"): that
///   file, device or link;
/// - else the name of a queue of the print system, which gets the bytes raw.
/// Throws PrinterError.
std::unique_ptr<PrinterPort> open_port(std::string_view name, const Paths& paths);

}  // namespace tela
