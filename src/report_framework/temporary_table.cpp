#include "report_framework/temporary_table.h"

#include <utility>

#include "shell/database_gateway.h"
#include "shell/failure.h"

namespace tela {

TemporaryTable::TemporaryTable(Connection& connection, std::string name)
    : connection_(connection), name_(std::move(name)) {}

TemporaryTable::~TemporaryTable() {
  if (dropped_) return;
  // The table is not there if its creation was rolled back; then there is nothing to drop.
  pass_over([this] {
    if (connection_.in_transaction()) connection_.rollback_trans();
  });
  pass_over([this] { drop(); });
}

void TemporaryTable::drop() {
  Transaction dropping(connection_);
  connection_.execute("Drop Table " + name_);
  dropping.commit();
  dropped_ = true;
}

}  // namespace tela
