// The settings of the loyalty scheme and the actions that delete bills.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "screens/maintenance/frmCatSaleDelete.h"
#include "screens/maintenance/frmCatWSaleDelete.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Maintenance : public ::testing::Test {
 protected:
  std::string rows(const std::string& table) { return shop_.sql("select * from " + table).dump(); }
  /// Runs a script and returns the texts of its messages.
  std::vector<std::string> told(const std::string& script) {
    std::vector<std::string> texts;
    for (const std::string& line : shop_.run(script)) {
      const Json event = Json::parse(line);
      if (event.contains("message")) texts.push_back(event["message"]["text"]);
      EXPECT_FALSE(event.contains("error")) << line;
    }
    return texts;
  }
  Json controls() { return shop_.show()["controls"]; }
  bool keeps_rows() const { return std::filesystem::exists(shop_.paths().way_back()); }

  Shop shop_;
};

class Points : public Maintenance {};

TEST_F(Points, ShowsAndChangesTheOneRow) {
  const Json shown = shop_.show("open frmPoints");
  EXPECT_EQ(shown["controls"], Json::parse(R"({"Text1":"  100.00","Check1":"1","Check2":"0",)"
                                           R"("Check3":"0","cmdModify":"&MODIFY"})"));
  EXPECT_THAT(told("set Text1 2.5\nset Check1 0\nset Check3 1\npress cmdModify"),
              ElementsAre("Records Modified"));
  EXPECT_EQ(rows("PointsSet"), "[[2.5,0,0,1]]");
}

TEST_F(Points, ABadValueIsToldAndNothingIsChanged) {
  shop_.run("open frmPoints");
  for (const char* value : {"", "much", "1e999"})
    EXPECT_THAT(told(std::string("set Text1 ") + value + "\nset Check2 1\npress cmdModify"),
                ElementsAre("Please Enter The Correct Values"))
        << value;
  EXPECT_EQ(rows("PointsSet"), "[[100,1,0,0]]");
  EXPECT_THAT(told("set Text1 5\npress cmdModify"), ElementsAre("Records Modified"));
}

TEST_F(Points, WithoutAValueTheBoxesAreEmpty) {
  shop_.sql("update PointsSet set PointAmt=null");
  EXPECT_EQ(shop_.show("open frmPoints")["controls"]["Text1"], "");
  shop_.sql("delete from PointsSet");
  EXPECT_EQ(shop_.show("close\nopen frmPoints")["controls"]["Text1"], "");
}

class Gifts : public Maintenance {
 protected:
  Gifts() { shop_.run("open frmGiftAndPoints"); }
  std::vector<std::string> add(const std::string& name, const std::string& points) {
    return told("press cmdadd\nset Text2 " + name + "\nset Text3 " + points + "\npress cmdSave");
  }
};

TEST_F(Gifts, AreAddedUnderTheNextCode) {
  EXPECT_THAT(add("Amma's cup ", "50"), ElementsAre("Records Added"));
  EXPECT_THAT(add("Bag", "120.5"), ElementsAre("Records Added"));
  const Json state = shop_.show();
  EXPECT_EQ(state["grids"]["MSHF"]["cells"],
            Json::parse(R"([["Code","Gift Name","Points"],["1","Amma's cup","50.00"],)"
                        R"(["2","Bag","120.50"],["","",""]])"));
  EXPECT_EQ(state["disabled"], Json::parse(R"(["cmdSave"])"));
  EXPECT_EQ(state["controls"]["Text1"], "");
  EXPECT_EQ(shop_.show("press cmdadd")["controls"]["Text1"], "3");
}

TEST_F(Gifts, AreEditedByTheirCode) {
  add("Cup", "50");
  Json state = shop_.show("press cmdedit\ntype Text1 1");
  EXPECT_EQ(state["controls"]["Text2"], "Cup");
  EXPECT_EQ(state["controls"]["Text3"], "50.00");
  EXPECT_EQ(state["disabled"], Json::parse(R"(["cmdedit"])"));
  EXPECT_THAT(told("set Text2 O'Neil's cup\nset Text3 60\npress cmdSave"),
              ElementsAre("Records Modified"));
  EXPECT_EQ(rows("GiftPoints"), R"([[1,"O'Neil's cup",60]])");
  EXPECT_THAT(told("press cmdedit\nset Text1 9\npress cmdSave"),
              ElementsAre("Please Enter The Gift Name"))
      << "the code of no gift empties the boxes";
}

TEST_F(Gifts, ATakenCodeIsToldAndNothingIsLost) {
  add("Cup", "50");
  EXPECT_THAT(told("press cmdadd\nset Text1 1\nset Text2 Bag\nset Text3 9\npress cmdSave"),
              ElementsAre("The Gift Code Is Already There"));
  EXPECT_EQ(rows("GiftPoints"), R"([[1,"Cup",50]])");
  EXPECT_EQ(controls()["Text2"], "Bag");
  EXPECT_FALSE(shop_.state().Con->in_transaction());
  // Another code clears name and points, as for any code without a gift; typed again they are
  // added.
  EXPECT_THAT(told("set Text1 2\nset Text2 Bag\nset Text3 9\npress cmdSave"),
              ElementsAre("Records Added"));
}

TEST_F(Gifts, WhatIsMissingOrWrongIsAskedFor) {
  const std::string save = "\npress cmdSave";
  EXPECT_THAT(told("press cmdSave"), ElementsAre("Please Enter The Gift Code"));
  EXPECT_THAT(told("set Text1 1" + save), ElementsAre("Please Enter The Gift Name"));
  EXPECT_THAT(told("set Text2 Cup" + save), ElementsAre("Please Enter The Gift Points"));
  EXPECT_THAT(told("set Text3 0.50" + save), ElementsAre("Please Enter The Correct Points"));
  EXPECT_THAT(told("set Text3 1.50" + save), ElementsAre("Please Select Add or Edit Options"));
  EXPECT_THAT(told("press cmdadd\nset Text1 1.5\nset Text2 Cup\nset Text3 5" + save),
              ElementsAre("Please Enter The Correct Gift Code"));
  EXPECT_EQ(rows("GiftPoints"), "[]");
}

TEST_F(Gifts, AreDeletedAfterAQuestion) {
  add("Cup", "50");
  EXPECT_THAT(told("press Command1"), ElementsAre("Please Enter The Gift Code"));
  EXPECT_THAT(told("set Text1 7\npress Command1"),
              ElementsAre("Please Enter The Correct Gift Code"));
  const std::string question =
      "DO YOU WANT TO DELETE THE GIFT DETAILS- (OK To DELETE, Cancel To EXIT) ";
  EXPECT_THAT(told("set Text1 1\nanswer cancel\npress Command1"), ElementsAre(question));
  EXPECT_EQ(rows("GiftPoints"), R"([[1,"Cup",50]])");
  EXPECT_THAT(told("answer ok\npress Command1"), ElementsAre(question, "Gift Details Deleted"));
  EXPECT_EQ(rows("GiftPoints"), "[]");
  EXPECT_EQ(shop_.show("press cmdadd")["controls"]["Text1"], "1") << "a freed highest code";
}

class DeleteBills : public Maintenance {
 protected:
  DeleteBills() {
    shop_.add({.number = 7, .net = 10, .lines = {{1, "Rice", 5, 5, 4, 2}}});
    shop_.sql("insert into stockledger values (1,'2024-01-05',-2,'BILL 7')");
    shop_.sql("update bill_no set billno=7");
  }
  static constexpr const char* kQuestion = "Bill Print - (OK To Delete, Cancel To Save) ";
};

TEST_F(DeleteBills, EmptiesTheBillsAndStartsTheNumbersAnew) {
  EXPECT_THAT(told("answer ok\nopen StartDeleteBills"),
              ElementsAre(kQuestion, "ALL BILLS ARE DELETED"));
  for (const char* table : {"SalesTemp", "Sales", "stockledger"}) EXPECT_EQ(rows(table), "[]");
  EXPECT_EQ(rows("bill_no"), "[[0]]");
  EXPECT_TRUE(keeps_rows());
  EXPECT_THAT(told("answer ok\nopen StartDeleteBills"), Contains("ALL BILLS ARE DELETED"));
}

TEST_F(DeleteBills, CancelLeavesAllAsItWas) {
  EXPECT_THAT(told("open StartDeleteBills"), ElementsAre(kQuestion));
  EXPECT_EQ(rows("bill_no"), "[[7]]");
  EXPECT_FALSE(keeps_rows());
}

TEST_F(DeleteBills, AFailureIsToldAndUndoesAll) {
  shop_.sql("drop table stockledger");
  EXPECT_THAT(told("answer ok\nopen StartDeleteBills"),
              ElementsAre(kQuestion, HasSubstr("could not be completed")));
  EXPECT_EQ(shop_.sql("select count(*) from SalesTemp").dump(), "[[1]]");
  EXPECT_EQ(shop_.sql("select count(*) from Sales").dump(), "[[1]]");
  EXPECT_FALSE(shop_.state().Con->in_transaction());
}

TEST_F(DeleteBills, CancelledAtAnyQuestionLeavesAllAsItWas) {
  shop_.run("login KESTR KESTR472");
  AppState& app = shop_.state();
  const auto before = shop_.stored();
  int questions = 0;
  for (int allowed = 0; questions >= allowed; ++allowed) {
    questions = 0;
    app.Con->set_keep_going([&](std::int64_t) { return ++questions <= allowed; });
    const auto texts = told("answer ok\nopen StartDeleteBills");
    app.Con->set_keep_going({});
    if (questions <= allowed) {
      EXPECT_THAT(texts, Contains("ALL BILLS ARE DELETED"));
      break;
    }
    EXPECT_THAT(texts, ElementsAre(kQuestion)) << allowed;
    EXPECT_EQ(changed_tables(before, shop_.stored()), std::vector<std::string>()) << allowed;
    EXPECT_FALSE(app.Con->in_transaction());
  }
  EXPECT_GT(questions, 10);  // one for each statement, at the least
}

TEST_F(DeleteBills, IsNotOfferedByTheMenu) {
  shop_.run("open frmPoints");
  EXPECT_THAT(shop_.run("menu StartDeleteBills"), ElementsAre(HasSubstr("switched off")));
}

class CategoryLinesTest : public Maintenance {
 protected:
  CategoryLinesTest() {
    shop_.add_item(1, "Rice", "AMMA'S", "Rao");
    shop_.add_item(2, "Soap", "SOAPS", "Rao");
    for (const int bill : {1, 2})
      shop_.add({.number = bill,
                 .lines = {{1, "Amma's rice", 50, 45, 30, 2}, {2, "Soap", 12, 10, 8, 1}}});
    shop_.sql(
        "insert into wsalestemp (BillNo,BillDate,NetAmount,CashPaid,CardPaid,MealsPaid) "
        "values (1,'2024-01-05',100,20,0,0),(2,'2024-01-05',10,10,0,0),"
        "(3,'2024-01-06',1,1,0,0)");
    shop_.sql(
        "insert into wsales (BillNo,BillDate,iCode,mrp,SaleRate,Qty,Amount,NetAmount) values "
        "(1,'2024-01-05',1,50,45,2,90,100),(1,'2024-01-05',2,12,10,1,10,100),"
        "(2,'2024-01-05',1,50,45,2,90,90),(3,'2024-01-06',2,12,10,2,20,1)");
  }
  static std::string list(const std::string& screen) {
    return "open " + screen + "\npick Combo1 AMMA'S\npress cmdView\n";
  }
};

TEST_F(CategoryLinesTest, ListTheLinesOfOneCategory) {
  for (const char* screen : {"frmCatSaleDelete", "frmCatWSaleDelete"}) {
    const Json state = shop_.show(list(screen));
    EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3) << screen;
    const Json& first = state["grids"]["MSHF"]["cells"][1];
    EXPECT_EQ(first[0], "1");
    EXPECT_EQ(first[1], "05/01/2024");
    EXPECT_EQ(first[3], "Amma's rice");
    EXPECT_EQ(first[6], "AMMA'S");
    EXPECT_EQ(state["grids"]["MSHF"]["colours"], Json::object());
  }
  EXPECT_EQ(controls()["ltotsales"], "180.00");
  EXPECT_EQ(controls()["ltotprofit"], "4.00");
}

TEST_F(CategoryLinesTest, WithoutACategoryOneAsksAndTheOtherListsNothing) {
  EXPECT_THAT(told("open frmCatSaleDelete\npress cmdView"),
              ElementsAre("Please Select the Catagory"));
  EXPECT_THAT(told("open frmCatWSaleDelete\npress cmdView"), IsEmpty());
  EXPECT_EQ(controls()["ltotsales"], "0.00");
}

TEST_F(CategoryLinesTest, ButtonsWithoutAnActionSaySo) {
  shop_.run(list("frmCatSaleDelete"));
  for (const char* button : {"cmdDelete", "Command1", "Command2", "Command3"})
    EXPECT_THAT(told(std::string("press ") + button), ElementsAre(HasSubstr("Available Now")));
  EXPECT_EQ(shop_.sql("select count(*) from Sales").dump(), "[[4]]");
}

TEST_F(CategoryLinesTest, DeleteRemovesTheLinesAndSumsThePeriodsBills) {
  shop_.run(list("frmCatWSaleDelete"));
  EXPECT_THAT(told("press cmdDelete"), ElementsAre("ok"));
  EXPECT_EQ(shop_.sql("select BillNo,iCode,NetAmount from wsales order by BillNo").dump(),
            "[[1,2,10],[3,2,1]]");
  EXPECT_EQ(
      shop_.sql("select BillNo,NetAmount,cashret,uhsaved from wsalestemp order by BillNo").dump(),
      "[[1,10,10,2],[2,10,null,null],[3,1,null,null]]")
      << "a bill without lines keeps its header, as does one of another day";
  EXPECT_TRUE(keeps_rows());
  EXPECT_EQ(shop_.sql("select count(*) from Sales").dump(), "[[4]]");

  const std::string bills = rows("wsalestemp");
  EXPECT_THAT(told("press cmdDelete"), ElementsAre("ok"));
  EXPECT_EQ(rows("wsalestemp"), bills) << "a second time changes nothing";
}

TEST_F(CategoryLinesTest, PreviewStagesWhatTheReportHasAColumnFor) {
  shop_.run(list("frmCatSaleDelete"));
  const auto lines = shop_.run("answer ok\npress cmdprint");
  EXPECT_THAT(lines, Contains(HasSubstr("CatagoryReport.rpt")));
  EXPECT_EQ(rows("SalesCatagory"),
            R"([["2024-01-05","2024-01-05",1,"Amma's rice",null,null,2,90,"AMMA'S"],)"
            R"(["2024-01-05","2024-01-05",1,"Amma's rice",null,null,2,90,"AMMA'S"]])");
}

TEST(CategoryLinesSql, IsExact) {
  const CategoryLinesScreen::Inputs inputs{{"05/Jan/2024", "06/Jan/2024"}, "AMMA'S"};
  EXPECT_EQ(frmCatSaleDelete::sql(inputs),
            "select S.billno,S.billdate,S.icode,S.iname,S.amount,sum(S.qty),I.CATAGORY from sales "
            "S Join ITEMS I On S.iCode=I.iCode where S.billdate>='05/Jan/2024' and "
            "S.billdate<='06/Jan/2024' and I.catagory='AMMA''S' group by "
            "S.billno,S.billdate,S.icode,S.iname,S.amount,I.CATAGORY Order by S.iCode");
  EXPECT_EQ(frmCatWSaleDelete::sql(inputs),
            "select sales.billno,sales.billdate,SALES.icode'CODE',SALES.iname'ITEM "
            "NAME',str(SALES.amount,8,2)'AMOUNT',sum(SALES.qty)'QTY',MAX(ITEMS.CATAGORY)'CATAGORY'"
            " from sales,ITEMS where billdate>='05/Jan/2024' and billdate<='06/Jan/2024' and "
            "catagory='AMMA''S' AND SALES.ICODE=ITEMS.ICODE group by sales.billno,sales.billdate,"
            "SALES.icode,SALES.iname,SALES.amount,ITEMS.CATAGORY");
}

}  // namespace
}  // namespace tela::testing
