// The commands of tela_catalogue. Each works on one catalogue file and throws std::runtime_error,
// of which DatabaseError is one, with words for the user where it cannot do what it is asked.
#pragma once

#include <filesystem>
#include <string_view>

#include "apps/tela_catalogue/commands/messages.h"
#include "apps/tela_catalogue/demo/demo_catalogue.h"
#include "platform/paths/paths.h"

namespace tela {

/// Makes an empty catalogue with its start-up rows. Refuses a file that is there already.
void create_catalogue(const std::filesystem::path& catalogue, Messages& messages);

/// Makes a demo catalogue. It stands under its name only when it is whole; a file that is there
/// already is refused.
void make_demo_catalogue(const std::filesystem::path& catalogue, const demo::DemoOptions& options,
                         Messages& messages);

/// Adds the rows of a CSV file to a table in one transaction. If any line does not fit, each such
/// line is named with its reason and nothing is added.
void import_table(const std::filesystem::path& catalogue, std::string_view table,
                  const std::filesystem::path& file, Messages& messages);

/// Writes all rows of a table to a CSV file, in the order in which they were added.
void export_table(const std::filesystem::path& catalogue, std::string_view table,
                  const std::filesystem::path& file, Messages& messages);

/// Writes a copy of the catalogue as it stands at one moment, while others go on writing. The file
/// stands under its name only when it is whole; one that is there already is refused.
void back_up_catalogue(const std::filesystem::path& catalogue, const std::filesystem::path& file,
                       Messages& messages);

/// Looks through the whole catalogue. False if it is damaged: the file itself, or tables, columns
/// and start-up rows that are missing. What only looks wrong in the data is told and no damage.
bool check_catalogue(const std::filesystem::path& catalogue, Messages& messages);

/// Makes the workbooks that are missing, empty, in their places on the shop's machine; `office` is
/// the LibreOffice that makes them. One that is there is not touched.
void make_workbooks(const Paths& paths, const std::string& office, Messages& messages);

}  // namespace tela
