#include "apps/tela_catalogue/commands/insert_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace tela {
namespace {

struct Literal {
  std::string operator()(std::monostate /*null*/) const { return "null"; }

  std::string operator()(const std::string& text) const {
    const bool plain = std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
    std::string out = plain ? "'" : "N'";
    for (const char c : text) out.append(c == '\'' ? 2 : 1, c);
    return out + '\'';
  }

  // With an exponent: the server reads digits alone as a decimal number, and rounds those of a
  // column to a scale that all rows of a statement share.
  std::string operator()(double number) const {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.begin(), text.end(), number, std::chars_format::scientific).ptr;
    return {text.begin(), end};
  }

  std::string operator()(std::int64_t number) const { return std::to_string(number); }

  std::string operator()(const Date& date) const {
    return formatted("'%04d%02d%02d'", static_cast<int>(date.year()),
                     static_cast<int>(static_cast<unsigned>(date.month())),
                     static_cast<int>(static_cast<unsigned>(date.day())));
  }

  std::string operator()(const TimeOfDay& time) const {
    return formatted("'%02d:%02d:%02d'", time.hour, time.minute, time.second);
  }

 private:
  static std::string formatted(const char* pattern, int a, int b, int c) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), pattern, a, b, c);
    return text.data();
  }
};

}  // namespace

std::string sql_literal(const Value& value) {
  return std::visit(Literal{}, value);
}

InsertText::InsertText(std::string_view table, const std::vector<std::string>& columns) {
  head_.append("insert into ").append(table).append(" (");
  for (const std::string& column : columns) head_.append(column).append(",");
  head_.back() = ')';
  head_ += " values";
}

void InsertText::add(std::span<const Value> row) {
  values_ += rows_ == 0 ? "\n(" : ",\n(";
  for (const Value& value : row) values_.append(sql_literal(value)).append(",");
  values_.back() = ')';
  ++rows_;
}

std::string InsertText::take() {
  std::string statement = head_ + values_;
  values_.clear();
  rows_ = 0;
  return statement;
}

}  // namespace tela
