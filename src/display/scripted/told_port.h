// A printer port that tells what has been printed on it, once the bill is closed.
#pragma once

#include "display/scripted/scripted_display.h"
#include "platform/printer/printer_port.h"

namespace tela {

/// Opens ports through `open` and tells `display` of each bill that was printed.
PrinterPortOpener tell_printed(PrinterPortOpener open, ScriptedDisplay& display);

}  // namespace tela
