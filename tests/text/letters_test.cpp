// The case of letters beyond A to Z, and what they sort by.
#include "platform/text/letters.h"

#include <gtest/gtest.h>

namespace tela {
namespace {

TEST(Letters, HaveACase) {
  const struct {
    std::string_view lower;
    std::string_view upper;
  } pairs[] = {
      {"abz", "ABZ"},
      {"àöøþÿ", "ÀÖØÞŸ"},
      {"āįĳķĺňŋŷźž", "ĀĮĲĶĹŇŊŶŹŽ"},
      {"άέήίόύώ", "ΆΈΉΊΌΎΏ"},
      {"αρσϋ", "ΑΡΣΫ"},
      {"ѐџаяѡҁҋҿӏӂӎӑԯ", "ЀЏАЯѠҀҊҾӀӁӍӐԮ"},
  };
  for (const auto& pair : pairs) {
    EXPECT_EQ(upper_case(pair.lower), pair.upper);
    EXPECT_EQ(lower_case(pair.upper), pair.lower);
    EXPECT_EQ(upper_case(pair.upper), pair.upper);
    EXPECT_EQ(lower_case(pair.lower), pair.lower);
  }
  EXPECT_EQ(upper_case("ς"), "Σ");
  for (const std::string_view same : {"×÷ßĸ 5₹", "அரிசி चावल", "\xC3", "\x80z\xE9 "}) {
    EXPECT_EQ(lower_case(same), same);
  }
}

TEST(Letters, StandOnABase) {
  const std::u32string_view accented = U"éÉçßøØðžŽſΆώςЁ";
  const std::u32string_view bases = U"eecsoodzzsαωσе";
  for (std::size_t i = 0; i < accented.size(); ++i) {
    EXPECT_EQ(base_letter(accented[i]), bases[i]) << i;
  }
  for (const char32_t plain : U"eE5 ×÷þÞαЖ₹அ") EXPECT_EQ(base_letter(plain), U'\0');
}

}  // namespace
}  // namespace tela
