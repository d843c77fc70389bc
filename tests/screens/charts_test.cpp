// The charts over a few bills whose figures can be checked by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "screens/graphs/frmBarChart.h"
#include "screens/graphs/frmBarChartCost.h"
#include "screens/graphs/period_chart.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string period(const char* first, const char* last) {
  return std::string("set DTP1 ") + first + "\nset DTP2 " + last + "\n";
}

// The rows as "label=value".
std::vector<std::string> rows(const Json& state) {
  std::vector<std::string> all;
  for (const Json& row : state["chart"]["rows"])
    all.push_back(row[0].get<std::string>() + "=" + row[1].get<std::string>());
  return all;
}

std::string plain_box(const std::string& text) {
  return R"({"message":{"text":")" + text +
         R"(","icon":"none","buttons":"ok","title":"","answer":"ok"}})";
}

class Charts : public ::testing::Test {
 protected:
  Charts() {
    shop.add_item(1, "Rice", "GRAINS", "Amma");
    shop.add_item(2, "Soap", "SOAPS", "Lily");
    shop.sql("update Items set iLongName=' Basmati rice ' where iCode=1");
    shop.sql("update Items set iLongName='Soap, 100 g' where iCode=2");
    shop.add({.number = 1, .date = "2023-01-31", .staff = "ANU ", .net = 100.25});
    shop.add({.number = 2, .date = "2024-01-01", .counter = 12, .staff = "BINU", .net = 200.5});
    shop.add({.number = 3,
              .date = "2024-01-01",
              .staff = "ANU",
              .net = 50,
              .lines = {{1, "Rice", 50, 10.4, 8, 2}, {2, "Soap", 12, 10, 0, 1}}});
    shop.add({.number = 4,
              .date = "2024-01-31",
              .counter = 2,
              .staff = "BINU",
              .net = -20,
              .lines = {{1, "Rice", 50, 10.6, 8, 0.5}, {2, "Soap", 12, 9, 0, -3}}});
  }

  Shop shop;
};

TEST_F(Charts, BeginWithFlatBarsAndNothingDrawn) {
  const Json state = shop.show("open frmBarChart");
  EXPECT_EQ(state["caption"], " GRAPH FOR A YEAR");
  EXPECT_EQ(state["controls"].dump(),
            R"({"DTP1":"05/01/2024","DTP2":"05/01/2024","Combo1":"2dBar",)"
            R"("cmdView":"&View","cmdSave":"&Save"})");
  EXPECT_THAT(state["items"]["Combo1"],
              ElementsAre("2dArea", "2dBar", "2dLine", "2dCombination", "2dPie", "2dStep", "2dXY",
                          "3dArea", "3dBar", "3dCombination", "3dLine", "3dStep"));
  EXPECT_EQ(state["chart"].dump(),
            R"({"type":1,"legend":false,"column":"","rows":[],"labels":0,"orientation":0})");
}

TEST_F(Charts, AYearByMonthLeavesTheLastDayOut) {
  const std::string open = "open frmBarChart\n";
  Json state = shop.show(open + period("31/01/2023", "31/01/2024") + "press cmdView");
  EXPECT_EQ(state["chart"].dump(), R"({"type":1,"legend":true,"column":"Sales for a Period",)"
                                   R"("rows":[["January 2023","100.25"],["January 2024","250.5"]],)"
                                   R"("labels":1,"orientation":0})");
  state = shop.show(open + period("01/01/2024", "01/02/2024") + "press cmdView");
  EXPECT_THAT(rows(state), ElementsAre("January 2024=230.5"));
  // The days do not count: thirteen months may be drawn, and a reversed period passes too.
  state = shop.show(open + period("31/01/2023", "30/01/2024") + "press cmdView");
  EXPECT_THAT(rows(state), ElementsAre("January 2023=100.25", "January 2024=250.5"));
  for (const auto& dates : {period("01/02/2024", "01/01/2024"), period("01/01/2024", "01/01/2024")})
    EXPECT_THAT(rows(shop.show(open + dates + "press cmdView")), IsEmpty());
}

TEST_F(Charts, RefuseAPeriodThatIsTooLongAndKeepWhatTheyShow) {
  struct Case {
    const char* screen;
    std::string longest;
    std::string too_long;
    const char* message;
  };
  const std::string year = period("01/01/2024", "31/01/2025");
  const std::string over_a_year = period("31/01/2024", "01/02/2025");
  const char* const of_a_year = "Please Select Graph for One Year Only";
  const Case cases[] = {
      {"frmBarChart", year, over_a_year, of_a_year},
      {"frmBarChartDay", period("01/01/2024", "01/02/2024"), period("01/01/2024", "02/02/2024"),
       "Please Select Graph for One Month"},
      {"frmBarChartCatagory", year, over_a_year, of_a_year},
      {"frmBarChartCounter", year, over_a_year, of_a_year},
      {"frmBarChartUser", year, over_a_year, of_a_year},
  };
  for (const auto& [screen, longest, too_long, message] : cases) {
    const Json drawn =
        shop.show(std::string("open ") + screen + "\n" + longest + "press cmdView")["chart"];
    EXPECT_GT(drawn["rows"].size(), 0U) << screen;
    const auto printed = shop.run(too_long + "press cmdView\nshow");
    ASSERT_EQ(printed.size(), 2U) << screen;
    EXPECT_THAT(printed[0],
                HasSubstr(std::string(R"("text":")") + message + R"(","icon":"information")"));
    EXPECT_EQ(Json::parse(printed[1])["chart"], drawn) << screen;
  }
}

TEST_F(Charts, OfAPeriodCountBothEnds) {
  const std::string january = period("01/01/2024", "31/01/2024") + "press cmdView";
  Json state = shop.show("open frmBarChartDay\n" + january);
  EXPECT_THAT(rows(state), ElementsAre("01/01/2024=250.5", "31/01/2024=-20"));
  EXPECT_EQ(state["chart"]["column"], "Sales for a Period");
  EXPECT_EQ(state["chart"]["orientation"], 2);

  state = shop.show("open frmBarChartCatagory\n" + january);
  EXPECT_THAT(rows(state), ElementsAre("GRAINS=3", "SOAPS=-2"));  // 2.5 and -2
  EXPECT_EQ(state["chart"]["column"], "Catagory Sales For A Period");
  EXPECT_EQ(state["chart"]["orientation"], 2);

  state = shop.show("open frmBarChartCounter\n" + january);
  EXPECT_THAT(rows(state), ElementsAre("Counter _ 1=50", "Counter _ 2=-20", "Counter _ 12=201"));
  EXPECT_EQ(state["chart"]["column"], "Counter Wise Sales for a Period");
  EXPECT_EQ(state["chart"]["orientation"], 0);

  state =
      shop.show("open frmBarChartUser\n" + period("31/01/2023", "31/01/2024") + "press cmdView");
  EXPECT_THAT(rows(state), ElementsAre("ANU=150", "BINU=181"));  // 150.25 and 180.5
  EXPECT_EQ(state["chart"]["column"], "Staff Wise Sales for a Period");
  EXPECT_EQ(state["caption"], "GRAPH - STAFF  WISE");
}

TEST_F(Charts, ShowTheThirtyCategoriesOfWhichMostWasSold) {
  for (int item = 10; item < 45; ++item) {
    shop.add_item(item, "X", "CATEGORY " + std::to_string(item), "S");
    shop.add({.number = item, .date = "2024-03-01", .lines = {{item, "X", 1, 1, 1, item * 1.0}}});
  }
  const auto drawn = rows(shop.show("open frmBarChartCatagory\n" +
                                    period("01/03/2024", "01/03/2024") + "press cmdView"));
  EXPECT_EQ(drawn.size(), 30U);
  EXPECT_EQ(drawn.front(), "CATEGORY 44=44");
  EXPECT_EQ(drawn.back(), "CATEGORY 15=15");
}

TEST_F(Charts, ChangeTheirTypeWithoutANewQuery) {
  const Json drawn = shop.show("open frmBarChartDay\nset DTP1 01/01/2024\npress cmdView");
  ASSERT_EQ(drawn["chart"]["rows"].size(), 1U);
  shop.sql("delete from SalesTemp");
  const std::pair<const char*, int> types[] = {
      {"3dBar", 0},  {"2dBar", 1},  {"3dLine", 2},        {"2dLine", 3},
      {"3dArea", 4}, {"2dArea", 5}, {"3dStep", 6},        {"2dStep", 7},
      {"2dPie", 14}, {"2dXY", 16},  {"3dCombination", 8}, {"2dCombination", 9},
  };
  for (const auto& [name, number] : types) {
    const Json state = shop.show(std::string("pick Combo1 ") + name);
    EXPECT_EQ(state["chart"]["type"], number) << name;
    EXPECT_EQ(state["chart"]["rows"], drawn["chart"]["rows"]);
  }
  EXPECT_EQ(shop.show("set Combo1 4dBar")["chart"]["type"], 9);
  EXPECT_EQ(shop.show("type Combo1 3dStep")["chart"]["type"], 6);
  EXPECT_EQ(shop.show("set Combo1 ")["chart"]["type"], 6);
}

TEST_F(Charts, AreWalkedWithEnter) {
  shop.run("open frmBarChart");
  EXPECT_THAT(
      shop.run("key DTP1 enter\nkey DTP2 enter\nkey Combo1 enter"),
      ElementsAre(R"({"focus":"DTP2"})", R"({"focus":"Combo1"})", R"({"focus":"cmdView"})"));
  EXPECT_THAT(shop.run("open frmBarChartCost\nkey Text1 enter"),
              ::testing::Not(Contains(HasSubstr("focus"))));
  EXPECT_THAT(shop.run("set Text1 2\nkey Text1 enter"), ElementsAre(R"({"focus":"DTP1"})"));
}

TEST_F(Charts, OfAnItemsRatesLookTheItemUp) {
  shop.run("open frmBarChartCost");
  const auto told = [&](const std::string& script) { return shop.run(script + "\npress cmdView"); };
  EXPECT_THAT(told(""),
              ElementsAre(HasSubstr("Please Enter The Code No."), R"({"focus":"Text1"})"));
  EXPECT_EQ(shop.show("type Text1 1")["controls"]["Text2"], "Basmati rice");
  // A letter clears the code alone; a code of no item clears the name.
  EXPECT_EQ(shop.show("type Text1 1x")["controls"]["Text1"], "");
  EXPECT_EQ(shop.show()["controls"]["Text2"], "Basmati rice");
  EXPECT_THAT(told(""), Contains(HasSubstr("Please Enter The Code No.")));
  EXPECT_EQ(shop.show("set Text1 77")["controls"]["Text2"], "");
  EXPECT_THAT(told(""),
              ElementsAre(HasSubstr("Please Enter The Correct Code No."), R"({"focus":"Text1"})"));
  EXPECT_EQ(shop.show("set Text1 1e400\nleave Text1")["controls"]["Text2"], "");
}

TEST_F(Charts, OfAnItemsRatesShowEachRateOnce) {
  shop.add({.number = 5, .date = "2024-01-31", .lines = {{1, "Rice", 50, 10.4, 8, 1}}});
  const std::string open = "open frmBarChartCost\nset Text1 1\n";
  const std::string january = period("01/01/2024", "31/01/2024");
  for (int run = 0; run < 2; ++run) {
    const Json state = shop.show(open + january + "press cmdView");
    EXPECT_EQ(state["chart"].dump(),
              R"({"type":1,"legend":true,"column":"Cost Comparision",)"
              R"("rows":[["10.4","10"],["10.6","11"]],"labels":1,"orientation":2})");
  }
  EXPECT_THAT(rows(shop.show(period("01/03/2024", "31/12/2033") + "press cmdView")), IsEmpty());
  for (int rate = 40; rate >= 1; --rate)
    shop.add(
        {.number = 100 + rate, .date = "2024-05-01", .lines = {{1, "Rice", 9, rate / 4.0, 1, 1}}});
  const auto drawn = rows(shop.show(period("01/05/2024", "01/05/2024") + "press cmdView"));
  EXPECT_EQ(drawn.size(), 30U);
  EXPECT_EQ(drawn.front(), "0.25=0");
  EXPECT_EQ(drawn.back(), "7.5=8");
}

TEST_F(Charts, OfAnItemsRatesLeaveNoTableBehindAFailure) {
  shop.run("open frmBarChartCost\nset Text1 1\n" + period("01/01/2024", "31/01/2024"));
  shop.sql("Create Table #CostCompare (Other float)");
  EXPECT_THAT(shop.run("press cmdView"), Contains(HasSubstr("could not be completed")));
  EXPECT_EQ(rows(shop.show("press cmdView")).size(), 2U);
}

TEST_F(Charts, SaveThePictureByWayOfTheClipboard) {
  std::string copied;
  std::vector<std::string> files;
  shop.platform().chart_pictures = {[&](const Chart& chart) { copied = chart.column; },
                                    [&](const std::string& path) {
                                      if (path == "full.bmp")
                                        throw std::runtime_error("The disk is full.");
                                      files.push_back(copied + ":" + path);
                                    }};
  shop.run("open frmBarChart");
  EXPECT_THAT(shop.run("press cmdSave"), ElementsAre(plain_box("Cancel was selected.")));
  EXPECT_THAT(shop.run("savefile early.bmp\npress cmdSave"), IsEmpty());
  EXPECT_THAT(shop.run("press cmdView\nsavefile sales of may.bmp\npress cmdSave"), IsEmpty());
  EXPECT_THAT(shop.run("savefile full.bmp\npress cmdSave"),
              ElementsAre(plain_box("The disk is full.")));
  EXPECT_THAT(files, ElementsAre(":early.bmp", "Sales for a Period:sales of may.bmp"));
}

TEST(ChartSql, IsExact) {
  const Period period{"01/Jan/2024", "31/Jan/2024"};
  EXPECT_EQ(frmBarChart::staging_sql(period),
            "Insert into BarChartYear Select datename(mm,(billdate)), "
            "Month(BillDate),Year(BillDate),sum(netamount) from salestemp where "
            "billdate>='01/Jan/2024' and billdate<'31/Jan/2024' group by "
            "datename(mm,(billdate)),Month(BillDate),Year(BillDate)");
  EXPECT_EQ(PeriodChartScreen::sql(frmBarChartDay(), period),
            "Select billdate,sum(netamount) from salesTemp where billdate>='01/Jan/2024' and "
            "billdate<='31/Jan/2024' group by BillDate order by billdate");
  EXPECT_EQ(PeriodChartScreen::sql(frmBarChartCatagory(), period),
            "Select  Top 30 sum(S.Qty),I.Catagory from Sales S join Items I on S.iCode=I.iCode "
            "where S.billdate>='01/Jan/2024' and S.billdate<='31/Jan/2024' group by I.Catagory "
            "ORDER BY sum(S.Qty) Desc");
  EXPECT_EQ(PeriodChartScreen::sql(frmBarChartCounter(), period),
            "Select Counter,sum(netamount) from salesTemp where billdate>='01/Jan/2024' and "
            "billdate<='31/Jan/2024' group by Counter order by Counter");
  EXPECT_EQ(PeriodChartScreen::sql(frmBarChartUser(), period),
            "Select Staff,sum(netamount) from salesTemp where billdate>='01/Jan/2024' and "
            "billdate<='31/Jan/2024' group by Staff order by Staff");
  EXPECT_EQ(frmBarChartCost::rates_sql(period, "12"),
            "Insert into #CostCompare Select SaleRate from Sales where billdate>='01/Jan/2024' "
            "and billdate<='31/Jan/2024' and iCode=12 group by SaleRate");
  EXPECT_EQ(frmBarChartCost::name_sql("12"), "Select iLongName from Items where icode=12");
}

}  // namespace
}  // namespace tela::testing
