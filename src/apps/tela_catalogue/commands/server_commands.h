// The commands of tela_catalogue for a shop that keeps its catalogue on a server.
#pragma once

#include <filesystem>
#include <ostream>

#include "apps/tela_catalogue/commands/messages.h"
#include "platform/database/database_client.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {

/// Writes the T-SQL that makes an empty catalogue ready for use on a server.
void write_server_script(std::ostream& out);

/// Copies the embedded catalogue to the server that `server_file` names, as copy_to_server() does.
void copy_catalogue(const std::filesystem::path& catalogue,
                    const std::filesystem::path& server_file, Messages& messages);

/// Copies every row of an embedded catalogue to the tables of an open connection, a transaction a
/// table. The one row of a settings table gives way to the catalogue's; a table that holds as many
/// rows as its source is taken for copied before. Throws std::runtime_error, before it writes
/// anything, if a table is missing or holds other rows.
void copy_to_server(EmbeddedCatalogue& source, Connection& server, Messages& messages);

}  // namespace tela
