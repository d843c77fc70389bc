// A connection to a SQL Server over ODBC, for the shop whose tills run on several machines.
//
// Written against the ODBC 3 interface alone, so that any driver for the server serves. The
// statements go to the server as they are, each as one batch on the one connection.
#pragma once

#include <memory>
#include <string>

#include "platform/database/database_client.h"

namespace tela {

/// How a driver takes and gives text: `wide` by the wide-character calls, as the drivers for SQL
/// Server do; `utf8` by the narrow ones in UTF-8, for a driver that is built without wide calls.
enum class DriverText { wide, utf8 };

/// A connection, not open yet, to the server that an ODBC connection string names
/// ("DSN=…;UID=…;PWD=…" or "DRIVER=…;SERVER=…;…"). The catalogue that open() is asked for is added
/// where the string names neither a data source nor a database. No message that it throws holds the
/// string's password.
///
/// A lost connection fails its statement with Kind::connection; the next one connects anew. A
/// transaction that was open then, or that the server dropped by itself, fails every statement
/// until rollback_trans(), so that none of them is stored by itself.
std::unique_ptr<Connection> make_odbc_connection(std::string connection_string,
                                                 DriverText text = DriverText::wide);

}  // namespace tela
