// The tables of a catalogue as CSV files see them.
#pragma once

#include <string_view>

#include "platform/csv/csv_value.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {

/// The table of that name, in any case of letters. Throws std::runtime_error if there is none.
const tsql::TableInfo& require_table(const EmbeddedCatalogue& catalogue, std::string_view name);

/// The column of that name, in any case of letters; null if the table has none.
const tsql::ColumnInfo* find_column(const tsql::TableInfo& table, std::string_view name);

/// What a column of that type takes from a file.
CsvColumn csv_column(const tsql::Type& type);

}  // namespace tela
