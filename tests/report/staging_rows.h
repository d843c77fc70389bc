// Rows for the staging tables, made from the catalogue's own definition of them.
#pragma once

#include <map>
#include <string>

#include "platform/database/database_client.h"

namespace tela {

/// The columns of every staging table in catalogue/staging.sql, by table.
std::map<std::string, RowSet> staging_tables();

/// `count` rows of plausible values for the columns of `table`: long names, amounts up to a few
/// hundred thousand, fifty rows a day from 1 January 2024.
RowSet staging_rows(const RowSet& table, int count);

}  // namespace tela
