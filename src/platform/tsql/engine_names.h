// Names and texts as SQLite reads them in any place of a statement.
#pragma once

#include <string>
#include <string_view>

namespace tela::tsql {

/// "name", with quotes inside doubled.
std::string quoted_name(std::string_view name);

/// 'text', with quotes inside doubled.
std::string quoted_text(std::string_view text);

/// The name with the schema that holds the table: temporary ones have their own.
std::string table_name(std::string_view name);

/// Whether the name is that of a temporary table.
bool is_temporary(std::string_view table);

}  // namespace tela::tsql
