// Groups of rows, made by hashing each row's keys as it comes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/embedded/grouping/group_totals.h"
#include "platform/embedded/grouping/spelling_index.h"

namespace tela::embedded {

/// Keys are equal by the server's rules. A group shows, of several spellings of a text, the first
/// by its bytes, and of a number the first that came.
class GroupTable {
 public:
  using Row = sqlite3_value**;

  /// `plan` holds a letter for each column of the groups (tsql/group_plan.h).
  explicit GroupTable(std::string_view plan);

  /// Adds a row, which has the columns of the source, to its group.
  void add(Row row);
  /// Adds the groups of further rows under the same plan.
  void add(GroupTable&& others);
  /// To be called behind the last row: puts the groups in the order of their keys.
  void sort();

  std::size_t size() const { return keys_.size(); }
  /// A column of the group at `position` in the order of the keys. Throws tsql::CompileError for a
  /// sum that is too large.
  tsql::StoredValue value(std::size_t position, std::size_t column) const;

 private:
  using Keys = std::vector<tsql::StoredValue>;

  std::uint32_t group_of(Row row);
  void spell_keys(Row row);
  std::uint32_t group_of_new_spelling(Row row);
  std::uint32_t group_of_keys(Keys keys);
  std::uint32_t add_group(Keys keys, std::size_t hash);

  std::size_t key_count_ = 0;
  std::vector<tsql::GroupColumn> aggregates_;
  std::vector<Keys> keys_;     ///< by group
  std::vector<Total> totals_;  ///< by group, then by aggregate
  std::vector<std::uint32_t> order_;
  Spelling spelling_;  ///< of the row at hand
  SpellingIndex by_spelling_;
  std::unordered_multimap<std::size_t, std::uint32_t> by_value_;
};

}  // namespace tela::embedded
