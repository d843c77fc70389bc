// Reading layout files: what a good one says, and what is said about a bad one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/report/layout_words.h"
#include "report/layout_fixture.h"

namespace tela {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(LayoutWords, QuotedTextKeepsBlanksAndCommentsEndTheLine) {
  const auto words = layout_words(R"(cell left "a # ""b""  " at 10 # a note)");
  std::vector<std::string> texts;
  for (const LayoutWord& word : words) texts.push_back(word.text);
  EXPECT_THAT(texts, ElementsAre("cell", "left", "a # \"b\"  ", "at", "10"));
}

TEST(LayoutReader, ColumnsTakeTheirPlacesFromTheLeft) {
  const Layout layout = layout_from({{"test.rpt", R"(
      paper A4 landscape
      margins 10 10 10 10
      table T
      columns 6 5 striped
        column A 20 left "First"
        column B rest left "Second"
        column C 30 right "Third" mask "0.00" sum
      report_footer
        totals "All")"}});
  EXPECT_EQ(layout.paper, (PaperSize{297, 210}));
  EXPECT_TRUE(layout.striped);
  const Row& detail = layout.detail.rows.at(0);
  EXPECT_DOUBLE_EQ(detail.height, 5);
  EXPECT_NEAR(detail.cells.at(1).x, 21.1, 1e-9);
  EXPECT_NEAR(detail.cells.at(2).x, 277 - 30 + 1.1, 1e-9);
  EXPECT_NEAR(detail.cells.at(2).width, 30 - 2.2, 1e-9);
  EXPECT_EQ(layout.column_header.rows.at(0).cells.at(1).text.at(0).name, "Second");
  const Row& totals = layout.report_footer.rows.at(0);
  EXPECT_TRUE(totals.rule_above);
  EXPECT_EQ(totals.cells.at(1).text.at(0).kind, TextPiece::Kind::sum);
  EXPECT_DOUBLE_EQ(totals.cells.at(1).x, detail.cells.at(2).x);
}

TEST(LayoutReader, AnIncludedFileGoesOnWithTheSameBand) {
  const Layout layout = layout_from({{"test.rpt", R"(table T
      include "head.inc"
      page_header
      row 4
        cell right "{page} of {pages}" at 100
      detail
      row 5
        cell left "{A}")"},
                                     {"head.inc",
                                      "formula tit\npage_header\nrow 7 bold\n"
                                      "cell centre \"{TIT}\" size 14"}});
  ASSERT_EQ(layout.page_header.rows.size(), 2u);
  const Cell& title = layout.page_header.rows[0].cells.at(0);
  EXPECT_EQ(title.text.at(0).kind, TextPiece::Kind::formula);
  EXPECT_EQ(title.style, (TextStyle{14, true, false}));
  EXPECT_DOUBLE_EQ(layout.page_header.height(), 11);
}

struct BadLayout {
  const char* text;
  const char* message;
};

void PrintTo(const BadLayout& layout, std::ostream* out) {
  *out << layout.message;
}

class BrokenLayout : public testing::TestWithParam<BadLayout> {};

TEST_P(BrokenLayout, NamesFileLineAndReason) {
  const std::string good_end = "\ndetail\nrow 5\n";
  try {
    layout_from({{"test.rpt", GetParam().text + good_end},
                 {"bad.inc", "# a note\npage_header\nrow tall"},
                 {"self.inc", "include \"self.inc\""}});
    FAIL() << "the layout was read";
  } catch (const ReportError& error) {
    EXPECT_THAT(error.what(), StartsWith(GetParam().message));
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, BrokenLayout,
    testing::Values(
        BadLayout{"table T\ncolum A", "test.rpt:2: 'colum' is no statement"},
        BadLayout{"table", "test.rpt:1: a table is missing"},
        BadLayout{"\n\npaper A3 portrait", "test.rpt:3: A4 or A5"},
        BadLayout{"margins 1 2 3", "test.rpt:1: a margin is missing"},
        BadLayout{"margins 100 0 110 0", "test.rpt:1: the margins leave no paper"},
        BadLayout{"detail\npaper A4 portrait", "test.rpt:2: paper and margins come ahead"},
        BadLayout{"row 5", "test.rpt:1: a row belongs to a band"},
        BadLayout{"detail\nrow -5", "test.rpt:2: the height '-5' is no measure"},
        BadLayout{"font \"Any\" 0", "test.rpt:1: a text is at least 1 point high"},
        BadLayout{"detail\nrow 5 loud", "test.rpt:2: 'loud' is not understood here"},
        BadLayout{"detail\nrow 5\ncell left \"open", "test.rpt:3: a quote is not closed"},
        BadLayout{"detail\nrow 5\ncell left \"{A\"", "test.rpt:3: a brace is not closed"},
        BadLayout{"detail\nrow 5\ncell left \"{avg A}\"", "test.rpt:3: {avg A} is no place"},
        BadLayout{"detail\nrow 5\ncell left A", "test.rpt:3: a quoted text is wanted where 'A'"},
        BadLayout{"detail\nrow 5\ncell left \"A\" at 150 width 40",
                  "test.rpt:3: the cell reaches beyond the margin"},
        BadLayout{"column A 10 left \"A\"", "test.rpt:1: a column stands under 'columns'"},
        BadLayout{"columns 6 5\n\ncolumn A 100 left \"A\"\ncolumn B 100 left \"B\"",
                  "test.rpt:1: the columns are wider than the paper"},
        BadLayout{"columns 6 5\ncolumn A 10 left \"A\"\nreport_footer\ntotals \"All\"",
                  "test.rpt:4: no column is summed"},
        BadLayout{"columns 6 5\ncolumn A 10 left \"A\" sum\nreport_footer\ntotals \"All\"",
                  "test.rpt:4: the totals' label has no column"},
        BadLayout{"group_footer", "test.rpt:1: no group is named yet"},
        BadLayout{"table T\ninclude \"bad.inc\"", "bad.inc:3: the height 'tall' is no measure"},
        BadLayout{"include \"none.inc\"", "test.rpt:1: there is no file 'none.inc'"},
        BadLayout{"include \"self.inc\"", "self.inc:1: files include each other too deeply"},
        BadLayout{"paper A4 portrait", "test.rpt: the layout names no table"},
        BadLayout{"table T\nreport_footer\nrow 300", "test.rpt: the bands are taller"}));

}  // namespace
}  // namespace tela
