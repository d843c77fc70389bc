// Which engine holds a catalogue: the program asks for it by name, the platform root decides.
#pragma once

#include "platform/database/database_client.h"
#include "platform/paths/paths.h"

namespace tela {

/// Connections that find their catalogue when they open: "…;Initial Catalog=NAME" is on a server if
/// <root>/NAME.odbc is there, which holds the ODBC connection string; else it is the embedded file
/// <root>/NAME.db. The choice is made anew by each open().
ConnectionFactory make_catalogue_factory(const Paths& paths);

}  // namespace tela
