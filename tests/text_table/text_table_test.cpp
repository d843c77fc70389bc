// The console's output as tables for a reader.

#include <gtest/gtest.h>

#include <stdexcept>

#include "apps/tela_table/text_table/screen_text.h"
#include "apps/tela_table/text_table/text_table.h"

namespace tela {
namespace {

TEST(TextTable, AlignsNumbersRightAndTextsLeft) {
  EXPECT_EQ(text_table({{"BILL NO", "NAME", "AMOUNT"},
                        {"7", "S\u0101mb\u0101r", "120.50"},
                        {"12", "", "****"},
                        {"", "Rice"}}),
            "BILL NO  NAME    AMOUNT\n"
            "-------  ------  ------\n"
            "      7  S\u0101mb\u0101r  120.50\n"
            "     12          ****\n"
            "         Rice\n");
}

TEST(ConsoleText, ShowsAScreenAsTheUserSeesIt) {
  const std::string line = R"({"screen":"frmList","caption":"  BILLS ","controls":)"
                           R"({"tTotal":"30.00","lBills":"2","cmdView":"&View"},"items":{},)"
                           R"("disabled":[],"grids":{"MSHF":{"rows":4,"cols":3,)"
                           R"("widths":[900,0,900],"cells":[["NO","KEY","SUM"],["1","a","10.00"],)"
                           R"(["2","b","20.00"],["","",""]],"colours":{}}}})";
  EXPECT_EQ(console_text(line, {{"lBills", "BILLS"}, {"tTotal", "TOTAL"}, {"tOther", "OTHER"}}),
            "\nBILLS\n\n"
            "NO    SUM\n"
            "--  -----\n"
            " 1  10.00\n"
            " 2  20.00\n"
            "\n"
            "BILLS      2\n"
            "TOTAL  30.00\n");
}

TEST(ConsoleText, ShowsMessagesAndRowsAndPassesOverOtherEvents) {
  EXPECT_EQ(console_text(R"({"message":{"text":"REPORT DELETED","icon":"information"}})", {}),
            "REPORT DELETED\n");
  EXPECT_EQ(console_text(R"({"columns":["n","d"],"types":["number","date"],)"
                         R"("rows":[[1.5,"2024-01-05"],[null,null]]})",
                         {}),
            "  n  d\n---  ----------\n1.5  2024-01-05\n\n");
  EXPECT_EQ(console_text(R"({"focus":"Combo1"})", {}), "");
}

TEST(ConsoleText, HandsOnTheConsolesErrors) {
  EXPECT_THROW(console_text(R"({"error":"no screen"})", {}), std::runtime_error);
  EXPECT_THROW(console_text("Segmentation fault", {}), std::runtime_error);
}

}  // namespace
}  // namespace tela
