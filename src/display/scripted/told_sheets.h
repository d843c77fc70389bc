// The workbooks of a script, which tell of each sheet that was added.
#pragma once

#include <memory>

#include "display/scripted/scripted_display.h"
#include "platform/sheet/sheet_port.h"

namespace tela {

/// Adds sheets through `sheets` and tells `display` of each. Why one failed goes to the log, since
/// the script is told no more than the message.
std::unique_ptr<SheetPort> tell_sheets(std::unique_ptr<SheetPort> sheets, ScriptedDisplay& display);

}  // namespace tela
