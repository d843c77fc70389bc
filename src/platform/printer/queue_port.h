// A printer port that is a queue of the machine's print system, reached through its lp command.
#pragma once

#include <memory>
#include <string_view>

#include "platform/printer/printer_port.h"

namespace tela {

/// Whether a queue may have this name: printable ASCII without blanks, quotes, / \ # and without a
/// hyphen at its start.
bool is_queue_name(std::string_view name);

/// Opens the queue `name`, for which `is_queue_name` holds. The bill is handed over whole and raw
/// when the port closes, so a queue that is unknown or refuses it has printed nothing.
std::unique_ptr<PrinterPort> open_queue_port(std::string_view name);

}  // namespace tela
