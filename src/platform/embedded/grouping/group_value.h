// A value of a row as grouping sees it: compared by the server's rules.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/tsql/values.h"

namespace tela::embedded {

/// A value of the row at hand; its text lives as long as the row stands.
class RowValue {
 public:
  explicit RowValue(sqlite3_value* value) : type_(sqlite3_value_type(value)) {
    switch (type_) {
      case SQLITE_NULL:
        return;
      case SQLITE_INTEGER:
        whole_ = sqlite3_value_int64(value);
        return;
      case SQLITE_FLOAT:
        real_ = sqlite3_value_double(value);
        return;
      default:
        type_ = SQLITE_TEXT;
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
        text_ = {bytes == nullptr ? "" : bytes,
                 static_cast<std::size_t>(sqlite3_value_bytes(value))};
    }
  }

  bool is_null() const { return type_ == SQLITE_NULL; }
  bool is_whole() const { return type_ == SQLITE_INTEGER; }
  bool is_real() const { return type_ == SQLITE_FLOAT; }
  bool is_text() const { return type_ == SQLITE_TEXT; }
  std::int64_t whole() const { return whole_; }
  double real() const { return real_; }
  std::string_view text() const { return text_; }

  tsql::StoredValue stored() const;

 private:
  int type_;
  std::int64_t whole_ = 0;
  double real_ = 0;
  std::string_view text_;
};

/// How texts compare within a comparison of values.
using TextComparison = int (*)(std::string_view, std::string_view);

/// Below 0, 0 or above 0: null before numbers, those before texts. A number is the same value
/// whether it is stored as a whole number or not.
int compare_values(const tsql::StoredValue& left, const tsql::StoredValue& right,
                   TextComparison compare_text);

/// Equal for values that compare as equal by the server's rules.
std::size_t hash_value(const tsql::StoredValue& value);

}  // namespace tela::embedded
