// The value and text rules where their edges lie; statements show the rest.
#include <gtest/gtest.h>

#include "platform/tsql/text_rules.h"
#include "platform/tsql/values.h"

namespace tela::tsql {
namespace {

TEST(TextOrder, HasNoCaseAndNoTrailingBlanks) {
  // Each text sorts behind the one above it; texts of one line are equal.
  const std::vector<std::vector<std::string>> ascending = {
      {"", " ", "   "},
      {"_a"},
      {"1"},
      {"10", "10 "},
      {"2"},
      {"a\tb"},
      {"a", "A", "A  "},

      {"a b", "A B "},
      {"a1"},
      {"ab"},
      {"b"},
      {"et"},
      {"ete", "ETE "},
      {"ét\u00e9", "ÉT\u00c9 "},
      {"etf"},
      {"z"},
      {"Žž", "žŽ"},
      {"α"},
      {"ά", "Ά"},
      {"β", "Β"},
      {"д", "Д"},
      {"е"},
      {"ё", "Ё"},
      {"ж"},
      {"\xE0\xAE\x85"},
  };
  const auto sign = [](int order) { return (order > 0) - (order < 0); };
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      for (const std::string& left : ascending[i]) {
        for (const std::string& right : ascending[j]) {
          const int expected = (i > j) - (i < j);
          EXPECT_EQ(sign(compare_texts(left, right)), expected) << left << " / " << right;
          if (expected == 0) {
            EXPECT_EQ(hash_text(left), hash_text(right));
            EXPECT_EQ(compare_spellings(left, right) == 0, left == right);
          }
        }
      }
    }
  }
}

TEST(Like, MatchesAsTheServerDoes) {
  const struct {
    const char* text;
    const char* pattern;
    bool matches;
  } cases[] = {
      {"abc", "abc", true},
      {"abc  ", "ABC", true},
      {"abc", "abc ", false},
      {"abc", "%", true},
      {"", "%", true},
      {"abc", "_b_", true},
      {"abc", "_", false},
      {"aXbXc", "a%x_", true},
      {"aab", "%ab", true},
      {"50%", "50[%]", true},
      {"505", "50[%]", false},
      {"a-b", "a[-x]b", true},
      {"cat", "[a-c]%", true},
      {"dog", "[^a-c]%", true},
      {"cat", "[^a-c]%", false},
      {"a[b", "a[b", true},
      {"\xE0\xAE\x85", "_", true},
      {"abc", "", false},
      {"aaaaaaaaaaaaaaaaaaaaaaab", "%a%a%a%a%a%a%a%a%c", false},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(matches_like(row.text, row.pattern), row.matches)
        << row.text << " like " << row.pattern;
  }
}

TEST(Literals, BecomeWhatTheirColumnHolds) {
  const auto bound = [](LiteralKind kind, const char* text, Type target) {
    return convert_literal({kind, text}, {0, target, "T", "c"});
  };
  const Type code{TypeKind::decimal, 0, 18, 0};
  const Type money{TypeKind::decimal, 0, 10, 2};
  const Type name{TypeKind::text, 5};
  EXPECT_EQ(bound(LiteralKind::decimal, "-2.5", code), StoredValue(std::int64_t{-3}));
  EXPECT_EQ(bound(LiteralKind::decimal, "123456789012345678", code),
            StoredValue(std::int64_t{123456789012345678}));
  EXPECT_EQ(bound(LiteralKind::text, " 1.005 ", money), StoredValue(1.01));
  EXPECT_EQ(bound(LiteralKind::decimal, "12.9", {TypeKind::integer, 0, 10}),
            StoredValue(std::int64_t{12}));
  EXPECT_EQ(bound(LiteralKind::decimal, "-007.50", name), StoredValue("-7.50"));
  EXPECT_EQ(bound(LiteralKind::integer, "0", name), StoredValue("0"));
  EXPECT_EQ(bound(LiteralKind::text, "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9  ", name),
            StoredValue("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"));
  EXPECT_THROW(bound(LiteralKind::text, "1234567890123456789", code), CompileError);
  EXPECT_THROW(bound(LiteralKind::decimal, "2147483648", {TypeKind::integer, 0, 10}), CompileError);
  EXPECT_THROW(bound(LiteralKind::decimal, "123456789.00", money), CompileError);
}

TEST(Dates, AddAndDifferAcrossMonthsAndYears) {
  EXPECT_EQ(date_add("month", -1, 20240331), 20240229);
  EXPECT_EQ(date_add("year", 1, 20240229), 20250228);
  EXPECT_EQ(date_add("quarter", 2, 20231115), 20240515);
  EXPECT_EQ(date_add("week", 1, 20241228), 20250104);
  EXPECT_THROW(date_add("year", 9000, 20240101), CompileError);
  EXPECT_EQ(date_difference("week", 20240106, 20240107), 1);  // Saturday to Sunday
  EXPECT_EQ(date_difference("week", 20240107, 20240113), 0);
  EXPECT_EQ(date_difference("quarter", 20231231, 20240101), 1);
  EXPECT_EQ(date_difference("year", 20240101, 20231231), -1);
  EXPECT_EQ(date_part("week", 20240107), 2);
  EXPECT_EQ(date_part("quarter", 20240401), 2);
  EXPECT_EQ(date_name("weekday", 20240107), "Sunday");
}

}  // namespace
}  // namespace tela::tsql
