// Padding counts characters, trims first and cuts at the end, whatever the alignment.
#include "shell/text_helpers.h"

#include <gtest/gtest.h>

namespace tela {
namespace {

TEST(Padding, FitsATextIntoColumns) {
  struct Case {
    std::string_view text;
    int width;
    std::string_view left;
    std::string_view right;
    std::string_view center;
  };
  const Case cases[] = {{"12.50", 8, "   12.50", "12.50   ", "  12.50"},  // 1.5 goes to 2
                        {" 7 ", 3, "  7", "7  ", " 7"},
                        {"RICE", 4, "RICE", "RICE", "RICE"},
                        {"BASMATI", 4, "BASM", "BASM", "BASM"},
                        {"TELA", 9, "     TELA", "TELA     ", "  TELA"},         // 2.5 goes to 2
                        {"TELA", 11, "       TELA", "TELA       ", "    TELA"},  // 3.5 goes to 4
                        {"", 4, "    ", "    ", "  "},
                        {"RICE", 0, "", "", ""},
                        {"RICE", -1, "", "", ""},
                        {"é₹", 4, "  é₹", "é₹  ", " é₹"},
                        {"अबक", 2, "अब", "अब", "अब"}};
  for (const auto& [text, width, left, right, center] : cases) {
    EXPECT_EQ(PadLeft(text, width), left) << text << " in " << width;
    EXPECT_EQ(PadRight(text, width), right) << text << " in " << width;
    EXPECT_EQ(CenterPad(text, width), center) << text << " in " << width;
  }
}

}  // namespace
}  // namespace tela
