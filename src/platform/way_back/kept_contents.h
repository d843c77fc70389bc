// What a part of the kept rows is made of: its list of contents, one line a file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace tela {

/// The file of a part that holds its list of contents.
inline constexpr const char* kept_contents_file = "contents.csv";

/// What stands behind the name of a folder that is not whole yet.
inline constexpr const char* unfinished_kept_rows = ".unfinished";

/// Rows of one table, and what became of them.
struct KeptTable {
  enum class Change { removed, changed, added };

  std::string table;
  Change change = Change::removed;
  std::vector<std::string> key = {};      ///< the columns that tell a row; none: all of them do
  std::vector<std::string> written = {};  ///< of changed rows: the columns that were written
  /// Whole rows, as `tela_catalogue import` reads them: as they were, or as they were added.
  std::string file = {};
  /// Of changed rows: line by line the new values of the written columns.
  std::string after_file = {};
  std::int64_t rows = 0;
};

/// The list as CSV.
std::string contents_text(const std::vector<KeptTable>& tables);

/// Reads the list of a part's folder. Throws std::runtime_error with words for the user.
std::vector<KeptTable> read_contents(const std::filesystem::path& part);

}  // namespace tela
