// What stands between a screen and the database: the connection's start, and the fixed shape of a
// query on the shared recordset.
#pragma once

#include <string>
#include <string_view>

#include "shell/app_state.h"

namespace tela {

/// Creates and opens the one connection and sets the shop's identity. A failure shows its message
/// once; the identity then stays unset and `Con` empty.
void ConnectDatabase(AppState& app);

/// Sets a new, closed recordset into `Rs`.
void NewRs(AppState& app);

/// Closes `Rs` and clears the reference.
void CloseRs(AppState& app);

/// NewRs, and opens it with `sql` on the connection.
Recordset& OpenRs(AppState& app, std::string_view sql);

/// The statements between BeginTrans and CommitTrans. Leaves nothing open: on the way out by a
/// failure it rolls back.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();

 private:
  Connection& connection_;
  bool open_ = true;
};

/// A field as text: a number in plain form, a date as dd/mm/yyyy, a time as HH:MM:SS, null as
/// empty.
std::string field_text(const Value& value);

/// A field as a number: Val of its text, and 0 for null.
double field_number(const Value& value);

}  // namespace tela
