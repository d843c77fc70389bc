// Kept rows in batches, alike rows together.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/kept_rows_file.h"
#include "platform/way_back/kept_contents.h"

namespace tela {

/// Rows that are alike in all columns, and became alike.
struct KeptGroup {
  std::vector<Value> row;            ///< as it was, or as it was added
  std::vector<Value> before, after;  ///< of changed rows: the written columns
  std::int64_t count = 1;
};

class KeptBatches {
 public:
  /// More rows than a list on a screen has, so that what an action wrote twice into one row, a
  /// statement for each line of its list, meets in a batch.
  static constexpr std::size_t most_rows = 40'000;

  /// Throws std::runtime_error with words for the user, as next() does.
  KeptBatches(const std::filesystem::path& part, const KeptTable& kept,
              const std::vector<Field>& columns);

  /// The columns of a group's row.
  const std::vector<std::string>& columns() const { return rows_.columns(); }
  /// The position among them of a column. Throws if there is none of that name.
  std::size_t position(const std::string& column) const;

  /// The next batch; false at the end. A row that was written twice counts with its first old and
  /// its last new values.
  bool next(std::vector<KeptGroup>& batch);

 private:
  KeptGroup group_of(std::vector<Value> row);

  KeptRowsFile rows_;
  std::optional<KeptRowsFile> after_;
  std::vector<std::size_t> written_;  ///< their positions in a row
};

}  // namespace tela
