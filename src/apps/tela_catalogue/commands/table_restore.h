// Brings the kept rows of one table back into a catalogue.
#pragma once

#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "apps/tela_catalogue/commands/kept_batches.h"
#include "apps/tela_catalogue/commands/messages.h"
#include "platform/database/database_client.h"
#include "platform/way_back/kept_contents.h"

namespace tela {

/// How a table stands to the rows that were kept of it.
enum class Standing {
  as_before,  ///< the rows are as they were: the action was undone, or they are back already
  /// The rows are as the action left them, or in part still as before where it wrote them one by
  /// one, and can come back.
  as_left,
  rewritten  ///< neither
};

/// Works within the open transaction of a connection. Memory does not grow with the rows. Failures
/// throw DatabaseError, or std::runtime_error with words for the user; the caller then rolls back.
class TableRestore {
 public:
  /// `part` is the folder that holds the table's files.
  TableRestore(Connection& catalogue, std::filesystem::path part, KeptTable kept);

  /// Asked of a hundred rows: an action's transaction is whole or undone, so they speak for all.
  /// Rows that may be written in part are all asked.
  Standing standing() const;

  /// Brings them back. Throws std::runtime_error that names it at the first row in the way.
  void run(Messages& messages) const;

 private:
  KeptBatches batches() const { return {part_, kept_, fields_}; }

  std::string row_condition(const std::vector<Value>& row) const;
  std::string key_condition(const std::vector<Value>& row) const;
  std::string changed_condition(const KeptGroup& group, const std::vector<Value>& written) const;
  std::int64_t count(const std::string& condition) const;
  bool is_as_before(const KeptGroup& group) const;
  bool is_as_left(const KeptGroup& group) const;
  bool may_be_parted() const;

  void insert_all(Messages& messages) const;
  void require_free_keys() const;
  void require_free(const std::set<std::string>& keys) const;
  void take_away(const KeptGroup& group) const;
  void set_back(const KeptGroup& group) const;
  std::string assignments(const KeptGroup& group) const;
  std::vector<Value> as_left(const KeptGroup& group) const;
  /// Takes away as many of the rows that meet the condition as the group has, those first that
  /// read as they were left; the old row takes their place, or none.
  void replace_some(const std::string& condition, const KeptGroup& group,
                    const std::vector<Value>& left, bool by_old_row) const;
  void insert_rows(std::span<const std::vector<Value>> rows) const;
  [[noreturn]] void refuse(const std::string& condition) const;

  Connection& catalogue_;
  std::filesystem::path part_;
  KeptTable kept_;
  std::vector<Field> fields_;
  std::vector<std::string> columns_;  ///< of a kept row
  /// The columns that tell a row: the key, else those that the action did not write.
  std::vector<std::size_t> telling_;
};

}  // namespace tela
