// Layouts and rows together: what stands on which page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "platform/report/report_search.h"
#include "report/layout_fixture.h"

namespace tela {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

/// A page of this layout has 50 mm for its rows: ten of them, each 5 mm.
const std::string small_page = R"(
  paper A5 portrait
  margins 10 10 10 128
  table Bills
  formula tit
  page_header
    row 6
      cell left "{tit}"
      cell right "page {page} of {pages}"
  columns 6 5
    column Counter 20 left "Counter"
    column BillDate 30 left "Date" mask "dd/mmm/yyyy"
    column BillNo 20 right "Bill"
    column Amount 30 right "Amount" mask "0.00" sum
  page_footer
    row 10
)";

const Date first_day = 2024y / 1 / 5;

/// `count` bills of 1.005, 2.005 … on one day, at one counter.
RowSet bills(int count) {
  RowSet rows{{{"counter", FieldType::text},
               {"billdate", FieldType::date},
               {"billno", FieldType::whole_number},
               {"amount", FieldType::number}},
              {}};
  for (int i = 1; i <= count; ++i) {
    rows.rows.push_back({std::string("COUNTER-1"), first_day, std::int64_t{i}, i + 0.005});
  }
  return rows;
}

TEST(ReportDocument, ValuesAreShownUnderTheirMasks) {
  const auto document = document_from(small_page, bills(1), {{"tit", "TELA "}});
  EXPECT_THAT(texts_of(document, 1),
              ElementsAre("TELA ", "page 1 of 1", "Counter", "Date", "Bill", "Amount", "COUNTER-1",
                          "05/Jan/2024", "1", "1.01"));
}

TEST(ReportDocument, NullsShowNothingAndFiguresAreKnown) {
  RowSet rows = bills(1);
  rows.rows[0][1] = std::monostate{};
  const auto document = document_from(small_page, rows);
  const ReportPage page = document.page(1);
  EXPECT_EQ(page.texts.size(), 8u);
  EXPECT_FALSE(page.texts[5].is_figure) << page.texts[5].text;
  EXPECT_TRUE(page.texts[7].is_figure) << page.texts[7].text;
}

struct PageCase {
  int records;
  int pages;
  int on_last_page;
};

void PrintTo(const PageCase& pages, std::ostream* out) {
  *out << pages.records << " records";
}

class Pagination : public testing::TestWithParam<PageCase> {};

TEST_P(Pagination, FillsPagesToTheLastRow) {
  const auto [records, pages, on_last_page] = GetParam();
  const auto document = document_from(small_page, bills(records));
  EXPECT_EQ(document.record_count(), records);
  ASSERT_EQ(document.page_count(), pages);
  constexpr int head = 5;
  EXPECT_EQ(document.page(pages).texts.size(), static_cast<std::size_t>(head + 4 * on_last_page));
  EXPECT_THAT(texts_of(document, pages), Contains("Amount")) << "each page has the headings";
}

INSTANTIATE_TEST_SUITE_P(All, Pagination,
                         testing::Values(PageCase{0, 1, 0}, PageCase{1, 1, 1}, PageCase{10, 1, 10},
                                         PageCase{11, 2, 1}, PageCase{20, 2, 10},
                                         PageCase{10001, 1001, 1}));

TEST(ReportDocument, RowsStandOneBelowTheOther) {
  const auto document = document_from(small_page, bills(2));
  const ReportPage page = document.page(1);
  EXPECT_DOUBLE_EQ(page.texts[5].box.y, 22) << "margin, heading and column headings";
  EXPECT_DOUBLE_EQ(page.texts[9].box.y, 27);
}

TEST(ReportDocument, ATotalNeverStandsAloneOnThePage) {
  const std::string layout = small_page +
                             "report_footer\nrow 5\ncell left \"{records} bills\"\n"
                             "totals \"Total\"";
  const auto document = document_from(layout, bills(10));
  ASSERT_EQ(document.page_count(), 2);
  EXPECT_THAT(texts_of(document, 1), Not(Contains("10")));
  EXPECT_THAT(texts_of(document, 2), IsSupersetOf({"10", "10 bills", "Total", "55.05"}));
}

TEST(ReportDocument, AnEmptyReportShowsHeadingsAndNoHalfSentences) {
  const std::string layout = small_page +
                             "page_header\nrow 5\n"
                             "cell left \"From {BillDate} to {last BillDate}\"\n"
                             "report_footer\ntotals \"Total\"\nrow 5\n"
                             "cell left \"{percent Amount BillNo:0.0}\"";
  const auto document = document_from(layout, bills(0), {{"tit", "TELA"}});
  EXPECT_THAT(texts_of(document, 1), ElementsAre("TELA", "page 1 of 1", "Counter", "Date", "Bill",
                                                 "Amount", "Total", "0.00", "-"));
}

const std::string grouped = small_page + R"(
  group Counter
  group_header
    row 5
      cell left "{Counter}, from {first BillNo} to {last BillNo}"
  group_footer
    totals "{Counter}"
  group BillDate when many
  group_footer
    totals "{BillDate:dd/mm}: {records}"
)";

/// The texts of a page behind its headings.
std::vector<std::string> body_of(const ReportDocument& document, int page) {
  const std::vector<std::string> texts = texts_of(document, page);
  return {texts.begin() + 5, texts.end()};
}

TEST(ReportDocument, GroupsHaveTheirOwnSumsAndCounts) {
  RowSet rows = bills(5);
  rows.rows[2][1] = rows.rows[3][1] = rows.rows[4][1] = Date(2024y / 1 / 6);
  rows.rows[4][0] = std::string("COUNTER-2");
  const auto document = document_from(grouped, rows);
  EXPECT_EQ(body_of(document, 1).size(), 23u) << "the second counter does not fit whole";
  std::vector<std::string> texts = body_of(document, 1);
  const std::vector<std::string> second_page = body_of(document, 2);
  texts.insert(texts.end(), second_page.begin(), second_page.end());
  const auto bill = [](const char* counter, const char* day, const char* number,
                       const char* amount) {
    return std::vector<std::string>{counter, day, number, amount};
  };
  std::vector<std::string> expected{"COUNTER-1, from 1 to 4"};
  const auto add = [&](const std::vector<std::string>& more) {
    expected.insert(expected.end(), more.begin(), more.end());
  };
  add(bill("COUNTER-1", "05/Jan/2024", "1", "1.01"));
  add(bill("COUNTER-1", "05/Jan/2024", "2", "2.01"));
  add({"05/01: 2", "3.01"});
  add(bill("COUNTER-1", "06/Jan/2024", "3", "3.01"));
  add(bill("COUNTER-1", "06/Jan/2024", "4", "4.01"));
  add({"06/01: 2", "7.01", "COUNTER-1", "10.02", "COUNTER-2, from 5 to 5"});
  add(bill("COUNTER-2", "06/Jan/2024", "5", "5.01"));
  add({"06/01: 1", "5.01", "COUNTER-2", "5.01"});
  EXPECT_EQ(texts, expected);
}

TEST(ReportDocument, AGroupThatNeedsManyIsSilentWhereThereIsOne) {
  const auto document = document_from(grouped, bills(3));
  EXPECT_THAT(texts_of(document, 1), Not(Contains(HasSubstr("05/01"))));
  EXPECT_THAT(texts_of(document, 1), Contains("6.02"));
}

TEST(ReportDocument, AColumnThatIsMissingOrNoNumberIsNamed) {
  const auto refused = [](const std::string& cell) -> std::string {
    try {
      document_from("table T\ndetail\nrow 5\ncell left \"" + cell + "\"", bills(1));
    } catch (const ReportError& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_EQ(refused("{Nett}"), "test.rpt:4: the query gives no column 'Nett'");
  EXPECT_EQ(refused("{sum Counter}"), "test.rpt:4: column 'Counter' holds no numbers");
  EXPECT_EQ(refused("{percent Amount Cost}"), "test.rpt:4: the query gives no column 'Cost'");
}

TEST(ReportDocument, CsvHoldsAllRowsAndQuotesWhereNeeded) {
  RowSet rows{{{"iName", FieldType::text},
               {"BillDate", FieldType::date},
               {"BillTime", FieldType::time},
               {"Qty", FieldType::number}},
              {{std::string("Oil 5\" tin, \"A\""), first_day, TimeOfDay{9, 5, 0}, -1.5},
               {std::string("O'Neil\nTea"), std::monostate{}, std::monostate{}, 12345678.9}}};
  const auto document = document_from("table T\ndetail\nrow 5\ncell left \"{iName}\"", rows);
  std::ostringstream csv;
  document.write_csv(csv);
  EXPECT_EQ(csv.str(),
            "iName,BillDate,BillTime,Qty\r\n"
            "\"Oil 5\"\" tin, \"\"A\"\"\",2024-01-05,09:05:00,-1.5\r\n"
            "\"O'Neil\nTea\",,,12345678.9\r\n");
}

TEST(ReportDocument, CsvHeadsTheColumnsAsTheReportDoes) {
  RowSet rows{
      {{"FromDate", FieldType::text}, {"iName", FieldType::text}, {"Qty", FieldType::number}},
      {{"x", "Oil", 2.0}}};
  const auto document = document_from(
      "table T\ncolumns 6 5\ncolumn Qty 20 right \"Quantity\"\n"
      "column iName rest left \"Item Name\"",
      rows);
  std::ostringstream csv;
  document.write_csv(csv);
  EXPECT_EQ(csv.str(), "FromDate,Item Name,Quantity\r\nx,Oil,2\r\n");
}

TEST(ReportSearch, GoesOnAfterEachHitAndRoundTheEnd) {
  RowSet rows = bills(25);
  rows.rows[3][0] = std::string("Green Tea");
  rows.rows[22][0] = std::string("black TEA");
  const auto document = document_from(small_page, rows);
  const auto first = find_next(document, "tea", std::nullopt, 1);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->page, 1);
  const auto second = find_next(document, "tea", first, 1);
  ASSERT_TRUE(second);
  EXPECT_EQ(second->page, 3);
  EXPECT_EQ(document.page(3).texts[second->text].text, "black TEA");
  EXPECT_EQ(find_next(document, "tea", second, 1), first);
  EXPECT_EQ(find_next(document, "coffee", std::nullopt, 2), std::nullopt);
  EXPECT_EQ(find_next(document, "", std::nullopt, 1), std::nullopt);
}

}  // namespace
}  // namespace tela
