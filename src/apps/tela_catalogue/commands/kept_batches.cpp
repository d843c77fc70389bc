#include "apps/tela_catalogue/commands/kept_batches.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/csv/csv_value.h"
#include "platform/text/ascii.h"

namespace tela {
namespace {

/// Collects the groups of a batch.
class Groups {
 public:
  Groups(std::vector<KeptGroup>& groups, const std::vector<std::size_t>& written)
      : groups_(groups), written_(written) {}

  void add(KeptGroup group) {
    std::vector<std::size_t>& alike = by_rest_[rest_of(group.row)];
    for (const std::size_t index : alike)
      if (join(groups_[index], group)) return;
    alike.push_back(groups_.size());
    groups_.push_back(std::move(group));
  }

 private:
  /// Whether the second is more of the first, or goes on where the first ended.
  static bool join(KeptGroup& first, const KeptGroup& second) {
    if (first.before == second.before && first.after == second.after) {
      ++first.count;
      return true;
    }
    if (first.count != 1 || first.after != second.before) return false;
    first.after = second.after;
    return true;
  }

  /// The columns that no statement wrote, as one text.
  std::string rest_of(const std::vector<Value>& row) const {
    std::string rest;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (std::ranges::find(written_, i) == written_.end()) append_csv_value(rest, row[i]);
      rest += ',';
    }
    return rest;
  }

  std::vector<KeptGroup>& groups_;
  const std::vector<std::size_t>& written_;
  std::map<std::string, std::vector<std::size_t>, std::less<>> by_rest_;
};

}  // namespace

KeptBatches::KeptBatches(const std::filesystem::path& part, const KeptTable& kept,
                         const std::vector<Field>& columns)
    : rows_(part / kept.file, kept.table, columns) {
  if (kept.change != KeptTable::Change::changed) return;
  after_.emplace(part / kept.after_file, kept.table, columns);
  for (const std::string& column : after_->columns()) written_.push_back(position(column));
}

std::size_t KeptBatches::position(const std::string& column) const {
  const auto found = std::ranges::find_if(
      columns(), [&](const std::string& name) { return equal_ignoring_case(name, column); });
  if (found == columns().end())
    throw std::runtime_error("the kept rows have no column '" + column + "'");
  return static_cast<std::size_t>(found - columns().begin());
}

bool KeptBatches::next(std::vector<KeptGroup>& batch) {
  batch.clear();
  Groups groups(batch, written_);
  std::vector<Value> row;
  for (std::size_t count = 0; count < most_rows && rows_.read(row); ++count)
    groups.add(group_of(std::move(row)));
  return !batch.empty();
}

KeptGroup KeptBatches::group_of(std::vector<Value> row) {
  KeptGroup group{std::move(row), {}, {}};
  if (!after_) return group;
  for (const std::size_t position : written_) group.before.push_back(group.row[position]);
  if (!after_->read(group.after))
    throw std::runtime_error("the file of the new values is shorter than that of the rows");
  return group;
}

}  // namespace tela
