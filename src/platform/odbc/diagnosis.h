// What a failed ODBC call means, from its diagnostics: the DatabaseError to throw.
#pragma once

#include <vector>

#include "platform/database/database_client.h"
#include "platform/odbc/driver_text.h"

namespace tela::odbc {

/// What was tried when the call failed. A time-out while connecting is no slow statement.
enum class Step { connect, statement };

/// The error for a call that left `records`, the most telling of them in the engine's words and
/// what it means for the user in front. The password is still to be scrubbed off.
DatabaseError diagnose(const std::vector<Diagnostic>& records, Step step);

}  // namespace tela::odbc
