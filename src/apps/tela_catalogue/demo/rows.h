// Where the rows of a demo catalogue go.
#pragma once

#include <string_view>
#include <vector>

#include "platform/database/database_client.h"

namespace tela::demo {

using Row = std::vector<Value>;

/// Takes rows of the catalogue's tables, each with a value for every column in the table's order.
class RowSink {
 public:
  virtual ~RowSink() = default;
  virtual void add(std::string_view table, const Row& row) = 0;
};

}  // namespace tela::demo
