#include "platform/embedded/grouping/group_table.h"

#include <algorithm>
#include <utility>

#include "platform/tsql/text_rules.h"

namespace tela::embedded {
namespace {

using tsql::GroupColumn;
using tsql::StoredValue;
using Keys = std::vector<StoredValue>;

int compare_keys(const Keys& left, const Keys& right) {
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (const int order = compare_values(left[i], right[i], tsql::compare_texts); order != 0) {
      return order;
    }
  }
  return 0;
}

std::size_t hash_keys(const Keys& keys) {
  constexpr std::size_t spread = 0x9E3779B97F4A7C15;  // the golden ratio's bits
  std::size_t hash = 0;
  for (const StoredValue& key : keys) hash = (hash ^ hash_value(key)) * spread + (hash >> 29U);
  return hash;
}

// Texts alone: what is shown of a group must not depend on the order of its rows.
void keep_first_spellings(Keys& shown, Keys& keys) {
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const bool is_text = std::holds_alternative<std::string>(keys[i]);
    if (is_text && compare_values(keys[i], shown[i], tsql::compare_spellings) < 0) {
      shown[i] = std::move(keys[i]);
    }
  }
}

}  // namespace

GroupTable::GroupTable(std::string_view plan) {
  for (const char letter : plan) {
    const auto column = static_cast<GroupColumn>(letter);
    if (column == GroupColumn::key) {
      ++key_count_;
    } else {
      aggregates_.push_back(column);
    }
  }
}

void GroupTable::add(Row row) {
  const std::size_t group = group_of(row);  // which may be a new one
  auto total = totals_.begin() + static_cast<std::ptrdiff_t>(group * aggregates_.size());
  Row value = row + key_count_;
  for (const GroupColumn kind : aggregates_) {
    if (kind == GroupColumn::count_rows) {
      ++std::get<std::int64_t>(*total);
    } else {
      add_value(*total, kind, RowValue(*value++));
    }
    ++total;
  }
}

void GroupTable::add(GroupTable&& others) {
  auto other = others.totals_.begin();
  for (Keys& keys : others.keys_) {
    const std::size_t group = group_of_keys(std::move(keys));
    auto total = totals_.begin() + static_cast<std::ptrdiff_t>(group * aggregates_.size());
    for (const GroupColumn kind : aggregates_) add_total(*total++, kind, std::move(*other++));
  }
}

std::uint32_t GroupTable::group_of(Row row) {
  spell_keys(row);
  if (const auto known = by_spelling_.find(spelling_)) return *known;
  const std::uint32_t group = group_of_new_spelling(row);
  by_spelling_.add(spelling_, group);
  return group;
}

void GroupTable::spell_keys(Row row) {
  spelling_.clear();
  for (std::size_t i = 0; i < key_count_; ++i) {
    spelling_.add(RowValue(row[i]));
  }
}

std::uint32_t GroupTable::group_of_new_spelling(Row row) {
  Keys keys(key_count_);
  for (std::size_t i = 0; i < key_count_; ++i) {
    keys[i] = RowValue(row[i]).stored();
  }
  return group_of_keys(std::move(keys));
}

std::uint32_t GroupTable::group_of_keys(Keys keys) {
  const std::size_t hash = hash_keys(keys);
  const auto [begin, end] = by_value_.equal_range(hash);
  for (auto candidate = begin; candidate != end; ++candidate) {
    Keys& shown = keys_[candidate->second];
    if (compare_keys(shown, keys) != 0) continue;
    keep_first_spellings(shown, keys);
    return candidate->second;
  }
  return add_group(std::move(keys), hash);
}

std::uint32_t GroupTable::add_group(Keys keys, std::size_t hash) {
  const auto group = static_cast<std::uint32_t>(keys_.size());
  by_value_.emplace(hash, group);
  keys_.push_back(std::move(keys));
  for (const GroupColumn kind : aggregates_) totals_.push_back(empty_total(kind));
  return group;
}

void GroupTable::sort() {
  order_.resize(keys_.size());
  for (std::size_t i = 0; i < order_.size(); ++i) order_[i] = static_cast<std::uint32_t>(i);
  std::ranges::sort(order_, [this](std::uint32_t left, std::uint32_t right) {
    return compare_keys(keys_[left], keys_[right]) < 0;
  });
}

StoredValue GroupTable::value(std::size_t position, std::size_t column) const {
  const std::size_t group = order_[position];
  if (column < key_count_) return keys_[group][column];
  const std::size_t aggregate = column - key_count_;
  return finish(totals_[group * aggregates_.size() + aggregate], aggregates_[aggregate]);
}

}  // namespace tela::embedded
