// Texts in characters: no cut and no conversion ever leaves half a character.
#include "platform/text/utf8.h"

#include <gtest/gtest.h>

#include "platform/text/strings.h"

namespace tela {
namespace {

TEST(Utf8, CountsCharactersAndStrayBytes) {
  struct Case {
    std::string_view text;
    std::size_t count;
    std::string_view latin1;
  };
  const Case cases[] = {{"", 0, ""},
                        {"Rice", 4, "Rice"},
                        {"Café", 4, "Caf\xE9"},
                        {"₹5", 2, "?5"},
                        {"अब", 2, "??"},
                        {"😀x", 2, "?x"},
                        {"\xC3", 1, "?"},                  // cut off in mid-character
                        {"\x80", 1, "?"},                  // a continuation without a start
                        {"\xC0\x80", 2, "??"},             // an overlong form
                        {"\xED\xA0\x80", 3, "???"},        // half of a surrogate pair
                        {"\xF4\x90\x80\x80", 4, "????"}};  // beyond the last code point
  for (const auto& [text, count, latin1] : cases) {
    EXPECT_EQ(character_count(text), count);
    EXPECT_EQ(characters(text).size(), count);
    EXPECT_EQ(to_latin1(text), latin1);
  }
}

TEST(Utf8, CutsBetweenCharacters) {
  EXPECT_EQ(first_characters("aé₹😀z", 0), "");
  EXPECT_EQ(first_characters("aé₹😀z", 2), "aé");
  EXPECT_EQ(first_characters("aé₹😀z", 4), "aé₹😀");
  EXPECT_EQ(first_characters("aé₹😀z", 9), "aé₹😀z");
}

}  // namespace
}  // namespace tela
