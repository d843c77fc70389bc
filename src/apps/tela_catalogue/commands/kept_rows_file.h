// The rows of one file of kept rows, as values for the catalogue that they go back to.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/table_file.h"
#include "platform/database/database_client.h"

namespace tela {

class KeptRowsFile {
 public:
  /// `columns` are those of the table. Throws std::runtime_error, as read() does, with words for
  /// the user.
  KeptRowsFile(const std::filesystem::path& file, const std::string& table,
               const std::vector<Field>& columns);

  const std::vector<std::string>& columns() const { return rows_.columns(); }
  /// The next row; false at the end.
  bool read(std::vector<Value>& row);

 private:
  std::string name_;
  TableFile rows_;
  std::vector<std::size_t> moments_;  ///< the positions of days and times
};

}  // namespace tela
