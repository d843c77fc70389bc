#include "platform/embedded/grouping/group_totals.h"

#include <string>

#include "platform/tsql/compiler.h"
#include "platform/tsql/text_rules.h"

namespace tela::embedded {
namespace {

using tsql::GroupColumn;
using tsql::StoredValue;

void add_to_sum(ExactSum& sum, const RowValue& value) {
  value.is_whole() ? sum.add(value.whole()) : sum.add(value.real());
}

int sign_of(GroupColumn extreme) {
  return extreme == GroupColumn::greatest ? 1 : -1;
}

// Of several spellings that are one text, the first by its bytes stands for all.
void keep_extreme(StoredValue& extreme, StoredValue candidate, int sign) {
  if (std::holds_alternative<std::monostate>(candidate)) return;
  const bool is_first = std::holds_alternative<std::monostate>(extreme);
  if (is_first || compare_values(candidate, extreme, tsql::compare_spellings) * sign > 0) {
    extreme = std::move(candidate);
  }
}

void keep_extreme(StoredValue& extreme, const RowValue& value, int sign) {
  const auto* best = std::get_if<double>(&extreme);
  if (best != nullptr && value.is_real() && (value.real() - *best) * sign <= 0) return;
  keep_extreme(extreme, value.stored(), sign);
}

StoredValue finish_sum(const ExactSum& sum) {
  if (sum.has_fraction) return sum.real();
  if (sum.overflowed) {
    throw tsql::CompileError(tsql::CompileError::Kind::value, sum_overflow);
  }
  return sum.whole;
}

StoredValue finish_whole_average(const ExactSum& sum) {
  if (sum.has_fraction) return static_cast<std::int64_t>(sum.mean());
  return std::get<std::int64_t>(finish_sum(sum)) / sum.count;
}

}  // namespace

Total empty_total(GroupColumn kind) {
  switch (kind) {
    case GroupColumn::count_rows:
    case GroupColumn::count:
      return std::int64_t{0};
    case GroupColumn::least:
    case GroupColumn::greatest:
      return StoredValue{};
    default:
      return ExactSum{};
  }
}

void add_value(Total& total, GroupColumn kind, const RowValue& value) {
  if (value.is_null()) return;
  switch (kind) {
    case GroupColumn::count:
      ++std::get<std::int64_t>(total);
      return;
    case GroupColumn::least:
    case GroupColumn::greatest:
      return keep_extreme(std::get<StoredValue>(total), value, sign_of(kind));
    default:
      add_to_sum(std::get<ExactSum>(total), value);
  }
}

void add_total(Total& total, GroupColumn kind, Total&& other) {
  switch (kind) {
    case GroupColumn::count_rows:
    case GroupColumn::count:
      std::get<std::int64_t>(total) += std::get<std::int64_t>(other);
      return;
    case GroupColumn::least:
    case GroupColumn::greatest:
      return keep_extreme(std::get<StoredValue>(total), std::get<StoredValue>(std::move(other)),
                          sign_of(kind));
    default:
      std::get<ExactSum>(total).add(std::get<ExactSum>(other));
  }
}

StoredValue finish(const Total& total, GroupColumn kind) {
  if (const auto* count = std::get_if<std::int64_t>(&total)) return *count;
  if (const auto* extreme = std::get_if<StoredValue>(&total)) return *extreme;
  const auto& sum = std::get<ExactSum>(total);
  if (sum.count == 0) return {};
  if (kind == GroupColumn::average) return sum.mean();
  return kind == GroupColumn::whole_average ? finish_whole_average(sum) : finish_sum(sum);
}

}  // namespace tela::embedded
