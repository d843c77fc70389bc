// The commands of tela_catalogue for the rows that actions removed or rewrote.
#pragma once

#include <filesystem>
#include <ostream>
#include <string_view>

#include "apps/tela_catalogue/commands/messages.h"
#include "platform/database/database_client.h"

namespace tela {

/// Lists the kept rows in `folder`, the oldest first: a line for each action, and one for each of
/// its tables.
void list_kept(const std::filesystem::path& folder, std::ostream& out);

/// Brings back what the action removed or rewrote whose rows are kept in `folder` under `name`, in
/// one transaction on an open connection; what the action did last comes first. What is as it was
/// already is passed over. Throws std::runtime_error, and nothing has changed, if there is no such
/// action or if others have written to the rows since.
void restore_kept(Connection& catalogue, const std::filesystem::path& folder, std::string_view name,
                  Messages& messages);

}  // namespace tela
