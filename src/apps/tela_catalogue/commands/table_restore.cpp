#include "apps/tela_catalogue/commands/table_restore.h"

#include <algorithm>
#include <functional>
#include <set>
#include <stdexcept>
#include <utility>

#include "apps/tela_catalogue/commands/insert_text.h"
#include "platform/text/ascii.h"

namespace tela {

using Change = KeptTable::Change;

namespace {

constexpr std::size_t sample = 100;
/// The keys that one statement asks for.
constexpr std::size_t most_keys = 100;

void add_condition(std::string& text, const std::string& column, const Value& value) {
  text += (text.empty() ? "" : " and ") + column;
  text += is_null(value) ? " is null" : '=' + sql_literal(value);
}

bool names(const std::vector<std::string>& list, const std::string& column) {
  return std::ranges::any_of(
      list, [&](const std::string& name) { return equal_ignoring_case(name, column); });
}

}  // namespace

TableRestore::TableRestore(Connection& catalogue, std::filesystem::path part, KeptTable kept)
    : catalogue_(catalogue),
      part_(std::move(part)),
      kept_(std::move(kept)),
      fields_(catalogue.execute("select * from " + kept_.table + " where 1=0").fields) {
  const KeptBatches rows = batches();
  columns_ = rows.columns();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool tells =
        kept_.key.empty() ? !names(kept_.written, columns_[i]) : names(kept_.key, columns_[i]);
    if (tells) telling_.push_back(i);
  }
}

std::string TableRestore::row_condition(const std::vector<Value>& row) const {
  std::string condition;
  for (std::size_t i = 0; i < columns_.size(); ++i) add_condition(condition, columns_[i], row[i]);
  return condition;
}

std::string TableRestore::key_condition(const std::vector<Value>& row) const {
  std::string condition;
  for (const std::size_t i : telling_) add_condition(condition, columns_[i], row[i]);
  return condition;
}

std::string TableRestore::changed_condition(const KeptGroup& group,
                                            const std::vector<Value>& written) const {
  std::string condition = key_condition(group.row);
  for (std::size_t i = 0; i < written.size(); ++i)
    add_condition(condition, kept_.written[i], written[i]);
  return condition;
}

std::int64_t TableRestore::count(const std::string& condition) const {
  const RowSet rows = catalogue_.execute("select count(*) from " + kept_.table +
                                         " with (updlock,holdlock) where " + condition);
  return std::get<std::int64_t>(rows.rows.at(0).at(0));
}

bool TableRestore::is_as_before(const KeptGroup& group) const {
  switch (kept_.change) {
    case Change::removed:
      return count(row_condition(group.row)) >= group.count;
    case Change::added:
      return count(key_condition(group.row)) == 0;
    case Change::changed:
      break;
  }
  return count(changed_condition(group, group.before)) >= group.count;
}

bool TableRestore::is_as_left(const KeptGroup& group) const {
  switch (kept_.change) {
    case Change::removed:
      return count(row_condition(group.row)) == 0;
    case Change::added:
      return count(row_condition(group.row)) >= group.count;
    case Change::changed:
      break;
  }
  return count(changed_condition(group, group.after)) >= group.count;
}

// Rows of a key may be written one by one behind the transaction that kept them, and an action that
// was broken off has then written some of them.
bool TableRestore::may_be_parted() const {
  return kept_.change == Change::changed && !kept_.key.empty();
}

Standing TableRestore::standing() const {
  KeptBatches rows = batches();
  bool all_before = true;
  bool all_left = true;
  for (std::vector<KeptGroup> groups; rows.next(groups) && (all_before || all_left);) {
    if (!may_be_parted()) groups.resize(std::min(groups.size(), sample));
    for (const KeptGroup& group : groups) {
      const bool is_before = is_as_before(group);
      const bool is_left = is_as_left(group) || (may_be_parted() && is_before);
      all_before = all_before && is_before;
      all_left = all_left && is_left;
    }
    if (!may_be_parted()) break;
  }
  if (all_before) return Standing::as_before;
  return all_left ? Standing::as_left : Standing::rewritten;
}

void TableRestore::run(Messages& messages) const {
  if (kept_.change == Change::removed) return insert_all(messages);
  KeptBatches rows = batches();
  std::int64_t done = 0;
  std::vector<KeptGroup> groups;
  while (rows.next(groups)) {
    for (const KeptGroup& group : groups) {
      kept_.change == Change::added ? take_away(group) : set_back(group);
      done += group.count;
      messages.progress([&](std::ostream& out) { out << done << " rows of " << kept_.table; });
    }
  }
}

void TableRestore::insert_all(Messages& messages) const {
  if (!kept_.key.empty()) require_free_keys();
  KeptRowsFile rows(part_ / kept_.file, kept_.table, fields_);
  InsertText insert(kept_.table, rows.columns());
  std::int64_t done = 0;
  for (std::vector<Value> row; rows.read(row); ++done) {
    insert.add(row);
    if (insert.full()) catalogue_.execute(insert.take());
    messages.progress([&](std::ostream& out) { out << done << " rows of " << kept_.table; });
  }
  if (!insert.empty()) catalogue_.execute(insert.take());
}

// Others may have used a number again since, and their rows and the old ones would become one bill.
void TableRestore::require_free_keys() const {
  if (catalogue_.execute("select top 1 * from " + kept_.table).rows.empty()) return;
  KeptRowsFile rows(part_ / kept_.file, kept_.table, fields_);
  std::set<std::string> keys;
  for (std::vector<Value> row; rows.read(row);) {
    keys.insert(key_condition(row));
    if (keys.size() < most_keys) continue;
    require_free(keys);
    keys.clear();
  }
  if (!keys.empty()) require_free(keys);
}

void TableRestore::require_free(const std::set<std::string>& keys) const {
  std::string any;
  for (const std::string& key : keys) any += (any.empty() ? "(" : " or (") + key + ')';
  if (count(any) == 0) return;
  for (const std::string& key : keys) {
    if (count(key) == 0) continue;
    throw std::runtime_error(kept_.table + " holds other rows by now with " + key);
  }
}

void TableRestore::take_away(const KeptGroup& group) const {
  const std::string condition = row_condition(group.row);
  const std::int64_t there = count(condition);
  if (there < group.count) refuse(condition);
  if (there == group.count)
    catalogue_.execute("delete from " + kept_.table + " where " + condition);
  else
    replace_some(condition, group, group.row, false);
}

void TableRestore::set_back(const KeptGroup& group) const {
  if (group.before == group.after) return;  // what was written twice ended where it began
  const std::vector<Value> left = as_left(group);
  std::string condition = changed_condition(group, group.after);
  std::int64_t there = count(condition);
  if (there > group.count && !kept_.key.empty()) {
    // The key is that of several rows, as of two items with one code: the whole row tells them.
    condition = row_condition(left);
    there = count(condition);
  }
  if (there < group.count && may_be_parted() && is_as_before(group)) return;
  if (there < group.count) refuse(condition);
  if (there == group.count)
    catalogue_.execute("update " + kept_.table + " set " + assignments(group) + " where " +
                       condition);
  else
    replace_some(condition, group, left, true);
}

std::string TableRestore::assignments(const KeptGroup& group) const {
  std::string text;
  for (std::size_t i = 0; i < group.before.size(); ++i)
    text += (text.empty() ? "" : ",") + kept_.written[i] + '=' + sql_literal(group.before[i]);
  return text;
}

// The row as the action left it.
std::vector<Value> TableRestore::as_left(const KeptGroup& group) const {
  std::vector<Value> row = group.row;
  for (std::size_t i = 0; i < group.after.size(); ++i) {
    const auto is_it = [&](const std::string& name) {
      return equal_ignoring_case(name, kept_.written[i]);
    };
    const auto column = std::ranges::find_if(columns_, is_it);
    row[static_cast<std::size_t>(column - columns_.begin())] = group.after[i];
  }
  return row;
}

// Rows alike to the catalogue may still be spelled otherwise, and keep their spelling.
void TableRestore::replace_some(const std::string& condition, const KeptGroup& group,
                                const std::vector<Value>& left, bool by_old_row) const {
  std::string columns;
  for (const std::string& column : columns_) columns += (columns.empty() ? "" : ",") + column;
  auto rows =
      catalogue_.execute("select " + columns + " from " + kept_.table + " where " + condition).rows;
  std::stable_partition(rows.begin(), rows.end(), [&](const auto& row) { return row == left; });
  const auto replaced = std::span(rows).first(static_cast<std::size_t>(group.count));
  for (std::vector<Value>& row : replaced) row = group.row;
  catalogue_.execute("delete from " + kept_.table + " where " + condition);
  insert_rows(std::span(rows).subspan(by_old_row ? 0 : replaced.size()));
}

void TableRestore::insert_rows(std::span<const std::vector<Value>> rows) const {
  InsertText insert(kept_.table, columns_);
  for (const std::vector<Value>& row : rows) {
    insert.add(row);
    if (insert.full()) catalogue_.execute(insert.take());
  }
  if (!insert.empty()) catalogue_.execute(insert.take());
}

void TableRestore::refuse(const std::string& condition) const {
  throw std::runtime_error(kept_.table + " no longer holds what the action left: " + condition);
}

}  // namespace tela
