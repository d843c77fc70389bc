#include "platform/embedded/grouping/group_value.h"

#include <cmath>
#include <functional>

#include "platform/tsql/text_rules.h"

namespace tela::embedded {
namespace {

using tsql::StoredValue;

// Exact for whole numbers of 64 bits and for doubles alike.
long double number(const StoredValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
  return std::get<double>(value);
}

// Null, number, text.
int rank(const StoredValue& value) {
  if (std::holds_alternative<std::monostate>(value)) return 0;
  return std::holds_alternative<std::string>(value) ? 2 : 1;
}

template <typename T>
int order(const T& left, const T& right) {
  return left < right ? -1 : right < left ? 1 : 0;
}

struct Hash {
  std::size_t operator()(std::monostate) const { return 0; }
  std::size_t operator()(std::int64_t whole) const { return (*this)(static_cast<double>(whole)); }
  std::size_t operator()(double value) const { return std::hash<double>()(value); }
  std::size_t operator()(const std::string& text) const { return tsql::hash_text(text); }
};

}  // namespace

StoredValue RowValue::stored() const {
  switch (type_) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return whole_;
    case SQLITE_FLOAT:
      return real_;
    default:
      return std::string(text_);
  }
}

int compare_values(const StoredValue& left, const StoredValue& right, TextComparison compare_text) {
  const int left_rank = rank(left);
  if (const int by_rank = order(left_rank, rank(right)); by_rank != 0) return by_rank;
  if (left_rank == 0) return 0;
  if (left_rank == 1) return order(number(left), number(right));
  return compare_text(std::get<std::string>(left), std::get<std::string>(right));
}

std::size_t hash_value(const StoredValue& value) {
  return std::visit(Hash{}, value);
}

}  // namespace tela::embedded
