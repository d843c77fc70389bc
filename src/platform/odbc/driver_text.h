// Text over the ODBC calls, wide or narrow as the driver has it.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/odbc/odbc_connection.h"

namespace tela::odbc {

/// One record of a handle's diagnostics.
struct Diagnostic {
  std::string state;  ///< the SQLSTATE, five characters
  int native_code = 0;
  std::string text;  ///< without the names of the driver manager and the driver in front
};

/// The diagnostics that the last call left on a handle, in its order.
std::vector<Diagnostic> diagnostics(SQLSMALLINT handle_type, SQLHANDLE handle, DriverText form);

SQLRETURN driver_connect(SQLHDBC connection, const std::string& text, DriverText form);
SQLRETURN execute_direct(SQLHSTMT statement, std::string_view sql, DriverText form);

/// A text attribute of a result column, `position` from 1; empty if the driver has none.
std::string column_text(SQLHSTMT statement, SQLUSMALLINT position, SQLUSMALLINT attribute,
                        DriverText form);

/// The text of the current row's column, of any length. `is_null` tells null from an empty text.
SQLRETURN get_text(SQLHSTMT statement, SQLUSMALLINT position, DriverText form, std::string& out,
                   bool& is_null);

}  // namespace tela::odbc
