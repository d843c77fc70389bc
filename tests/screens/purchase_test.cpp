// The purchase reports over a few notes whose figures can be checked by hand, and how they add up
// with each other on random ones.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/text/number_text.h"
#include "screens/purchase/frmPurBillView.h"
#include "screens/purchase/frmPurchaseView.h"
#include "screens/purchase/purchase_list.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct NoteLine {
  int code;
  std::string name;
  int quantity, free;
  double rate, margin;
};

class Purchases : public ::testing::Test {
 protected:
  Purchases() {
    shop.sql(
        "insert into Supplier (Scode,Sname,GLCode,mobile,TaxType,CreditDays,GstNo) values "
        "(5,'Amma''s Farm ',77,'98400','SGST ',21,'37AB')");
  }

  void add_note(int number, int supplier, const std::string& name, const std::string& day,
                double net, const std::vector<NoteLine>& lines) {
    const std::string grn = std::to_string(number);
    shop.sql(
        "insert into PurchaseTemp (InternalNo,GrnNo,BillNo,BillDate,Scode,Sname,GstNo,TaxType,"
        "TotalQty,TotalValue,TotalDiscount,AfterDiscount,TotalCGST,TotalSGST,TotalIGST,"
        "GrossAmount,SplDiscount,SplDiscAmt,NetAmount,CessAmount) values (9" +
        grn + "," + grn + ",'B/" + grn + "','" + day + "'," + std::to_string(supplier) + ",'" +
        name + "','37AB','SGST',7,700,10,690,3,3,0,696.5,1,6.5," + std::to_string(net) + ",0.25)");
    for (const NoteLine& line : lines)
      shop.sql(
          "insert into Purchase (GrnNo,BillNo,BillDate,sname,iCode,iName,Qty,FQty,mrp,PurRate,"
          "DiscPer,DiscAmt,Amount,iCGst,iCGstAmt,iSGst,iSGstAmt,iIGst,iIGstAmt,Total,"
          "MarginPer,iHSNcode) values (" +
          grn + ",'B/" + grn + "','" + day + "','" + name + "'," + std::to_string(line.code) +
          ",'" + line.name + "'," + std::to_string(line.quantity) + "," +
          std::to_string(line.free) + ",50," + std::to_string(line.rate) + ",0,1.5," +
          std::to_string(line.quantity * line.rate) + ",2.5,1,2.5,1,5,0," +
          std::to_string(line.quantity * line.rate + 2) + "," + std::to_string(line.margin) +
          ",'0406')");
  }
  std::string text(const std::string& control) { return shop.show()["controls"][control]; }
  std::vector<std::string> row(std::size_t number) {
    return shop.show()["grids"]["MSHF"]["cells"][number];
  }

  Shop shop;
};

TEST_F(Purchases, ANoteIsShownAsItIsStored) {
  // The lines come to 410 and the header says 690.25: what is stored is shown.
  add_note(3, 5, "Amma''s Farm", "2024-01-05", 690.25,
           {{2, "Rice ", 10, 1, 40, 25.005}, {1, "Soap", 1, 0, 10, 0}});
  shop.state().PurBillNo = 3;
  shop.run("open frmPurBillView");
  EXPECT_EQ(text("LNetrate"), "690.25");
  EXPECT_EQ(text("tcustname"), "Amma's Farm");
  EXPECT_EQ(text("tGST_Type"), "SGST");
  EXPECT_EQ(text("lGLCode"), "77");
  EXPECT_EQ(text("tCreditDays"), "21");
  EXPECT_EQ(text("DTPicker1"), "05/01/2024");
  EXPECT_EQ(text("lblTotalQty"), "7.00");
  EXPECT_EQ(text("tCessAmt"), "0.25");
  EXPECT_EQ(text("lTotalRows"), "3");
  EXPECT_EQ(text("tTotalMargin"), "12.51") << "25.01 over two lines, one of them without margin";
  EXPECT_THAT(row(1), ElementsAre("1", "1", "Soap", "1.00", "0.00", "50.00", "10.00", "0.00",
                                  "1.50", "10.00", "2.50", "1.00", "2.50", "1.00", "5.00", "0.00",
                                  "12.00", "0.00", "0406"));
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 4);
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["colours"],
            Json::parse(R"({"1":[1,17,16777215],"2":[1,17,8454016]})"));
}

TEST_F(Purchases, TheWalkPassesGapsUnknownSuppliersAndEmptyNotes) {
  add_note(1, 5, "A", "2024-01-05", 10, {{1, "Soap", 1, 0, 10, 8}});
  add_note(2, 99, "Gone", "2024-01-05", 20, {{1, "Soap", 2, 0, 10, 8}});
  add_note(3, 0, "None", "2024-01-05", 30, {});
  shop.state().PurBillNo = 1;
  shop.run("open frmPurBillView\npress cmdNext");
  EXPECT_EQ(text("LNetrate"), "20.00");
  EXPECT_EQ(text("tcustname"), "");
  shop.run("press Command1\npress cmdNext\npress cmdNext");
  EXPECT_EQ(text("LNetrate"), "30.00");
  EXPECT_EQ(text("tGstNo"), "");
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 2);
  EXPECT_THAT(text("tTotalMargin"), HasSubstr("0"));

  EXPECT_THAT(shop.run("press cmdNext"),
              ElementsAre(R"({"message":{"text":"NO RECORDS FOUND IN THIS GRN NUMBER",)"
                          R"("icon":"critical","buttons":"ok","title":"TELA MINI SUPER MARKET",)"
                          R"("answer":"ok"}})"));
  EXPECT_EQ(text("tGrnNo"), "4");
  EXPECT_EQ(text("Text1"), "");
  EXPECT_EQ(row(0)[2], "ITEM NAME");
  EXPECT_THAT(shop.run("press Command2").front(), HasSubstr("Please Enter The Bill No"));
  shop.run("set tGrnNo 1\nkey tGrnNo enter\npress Command1\npress Command1");
  EXPECT_EQ(text("tGrnNo"), "-1");
  EXPECT_THAT(shop.run("set tGrnNo x\npress cmdView"), Contains(HasSubstr("NO RECORDS FOUND")));
  EXPECT_EQ(text("tGrnNo"), "");
}

TEST_F(Purchases, ANoteIsPrintedFromItsLines) {
  add_note(1, 5, "A", "2024-01-05", 10, {{1, "Soap", 1, 0, 10, 8}, {2, "Rice", 1, 0, 10, 8}});
  add_note(2, 5, "A", "2024-01-05", 10, {{3, "Salt", 1, 0, 10, 8}});
  shop.state().PurBillNo = 1;
  EXPECT_THAT(shop.run("open frmPurBillView\npress Command2").back(),
              HasSubstr(R"("report":"GrnReport.rpt","query":"SELECT * FROM GrnPrint","rows":2)"));
  EXPECT_EQ(shop.sql("select * from GrnPrint"), shop.sql("select * from Purchase where GrnNo=1"));
  EXPECT_THAT(shop.run("set tcustcode 0\npress Command2").front(),
              HasSubstr("Please Enter The Supplier Code"));
  EXPECT_THAT(shop.run("set tcustcode 98\npress Command2").front(),
              HasSubstr("Please Enter The Correct Supplier Code"));
}

TEST_F(Purchases, TheSecondViewerReckonsWithAnotherDiscount) {
  add_note(1, 5, "A", "2024-01-05", 690, {});
  shop.state().PurBillNo = 1;
  shop.run("open frmPurchaseView");
  EXPECT_EQ(text("LNetrate"), "690.00");
  shop.run("set TSdiscper 10");
  EXPECT_EQ(text("TsDiscAmt"), "69.650");
  EXPECT_EQ(text("LNetrate"), "627.00") << "626.85 to the nearest whole number";
  shop.run("set TsDiscAmt 1");
  EXPECT_EQ(text("LNetrate"), "696.00") << "695.5 to the even neighbour";
  shop.run("set TSdiscper x\nleave TSdiscper");
  EXPECT_EQ(text("TSdiscper"), "0.00");
}

TEST_F(Purchases, NotesOfAPeriodByNumberAndByMargin) {
  add_note(1, 5, "Amma''s Farm", "2024-01-04", 100.005, {{1, "Soap", 1, 0, 10, 30}});
  add_note(2, 6, "Lily", "2024-01-05", 50, {{1, "Soap", 2, 0, 10, 10}, {2, "Rice", 1, 0, 9, 5}});
  add_note(3, 6, "Lily", "2024-01-06", 70, {});
  shop.run("open frmMPreport\nset DTP1 04/01/2024\nset DTP2 06/01/2024");
  EXPECT_EQ(text("Text1"), "0");
  EXPECT_THAT(shop.run("press cmdView").front(), HasSubstr("Please Select The Supplier Name"));
  shop.run("pick Combo1 ALL SUPPLIER\npress CmdDesc");
  EXPECT_THAT(row(1), ElementsAre("1", "1", "B/1", "04/01/2024", "Amma's Farm", "696.50", "1.00",
                                  "6.50", "100.01", "30.00"));
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 3) << "a note without lines is not listed";
  EXPECT_EQ(text("Text1"), "150.01");
  EXPECT_EQ(text("tMargin"), "18.75") << "30 and 7.5, each note once";
  shop.run("press cmdAss");
  EXPECT_EQ(row(1)[1], "2");
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["colours"]["2"], Json::parse("[0,9,13421823]"));

  EXPECT_THAT(shop.run("press cmdpreview"), ElementsAre(HasSubstr("PRINT THE RECORD")));
  EXPECT_EQ(shop.sql("select * from SupPurRep")[1],
            Json::parse(R"(["2024-01-04","2024-01-06",2,1,"B/1","2024-01-04","Amma's Farm",696.5,1,
                            6.5,100.01])"));
  EXPECT_THAT(shop.run("set DTP1 07/01/2024\npress cmdpreview").front(),
              HasSubstr("The Start Date is Greater Than the End Date"));
  shop.run("press cmdView");
  EXPECT_EQ(text("tMargin"), "18.75") << "an empty list leaves the average";

  EXPECT_THAT(shop.run("open frmmonthlyPR\nset DTP1 04/01/2024\npick Combo1 Amma's Farm\n"
                       "press cmdView\ndoubleclick MSHF 1")
                  .back(),
              HasSubstr("frmPurBillView"));
  EXPECT_EQ(text("tGrnNo"), "1");
}

TEST_F(Purchases, ProductsOfAPeriod) {
  add_note(1, 5, "Amma''s Farm", "2024-01-05", 100, {{1, "Soap", 3, 1, 10, 0}});
  add_note(2, 5, "Lily", "2024-01-05", 100, {{1, "Soap", 2, 0, 10, 0}, {0, "Old", 9, 0, 1, 0}});
  shop.run("open frmItemPurchaseReport\npress cmdView");
  EXPECT_EQ(shop.show()["grids"]["MSHF"]["rows"], 1) << "no supplier is no supplier's list";
  shop.run("pick Combo1 ALL SUPPLIERS\npress cmdAss");
  EXPECT_THAT(row(1), ElementsAre("1", "1", "Soap", "5.00", "1.00", "6.00", "50.00", "10.00",
                                  "50.00", "3.00", "50.00", "4.00", "54.00"));
  shop.run("press cmdprint");
  EXPECT_EQ(shop.sql("select * from fItemPurRep"),
            Json::parse(R"([["2024-01-05","2024-01-05",1,1,"Soap",5,1,6,50,10,50,3,50,4,54]])"));
  shop.run("set Combo1 Amma's Farm\nkey DTP2 enter");
  EXPECT_EQ(row(1)[3], "3.00");

  shop.run("open frmIWPurRep\nkey DTP2 enter\npress cmdPrint");
  EXPECT_EQ(text("LTotal"), "59.00");
  EXPECT_EQ(shop.sql("select * from frmIWPurRep"),
            Json::parse(R"([["2024-01-05","2024-01-05",1,"Soap",5,1,6,10,50]])"));
}

double cell_sum(const Json& state, std::size_t column) {
  double sum = 0;
  for (const Json& cells : state["grids"]["MSHF"]["cells"])
    sum += Val(cells[column].get<std::string>());
  return sum;
}

// Whole rupees, so that no rounding parts the reports.
TEST_F(Purchases, ByItemBySupplierAndByNoteTheyAddUp) {
  std::mt19937 random(7);
  const auto below = [&](int limit) { return static_cast<int>(random() % limit); };
  const std::vector<std::string> names = {"Amma''s Farm", "Lily", "lily ", "Old & Sons"};
  double in_period = 0;
  for (int note = 1; note <= 40; ++note) {
    std::vector<NoteLine> lines;
    double net = 0;
    for (int line = below(4) + 1; line > 0; --line) {
      lines.push_back({below(6) + 1, "Item", below(9) + 1, below(2), 1.0 * (below(5) + 10), 10});
      net += lines.back().quantity * lines.back().rate + 2;
    }
    const int day = below(8) + 1;
    add_note(note, below(4) + 1, names[random() % names.size()], "2024-01-0" + std::to_string(day),
             net, lines);
    if (day >= 2 && day <= 7) in_period += net;
  }
  const std::string period = "\nset DTP1 02/01/2024\nset DTP2 07/01/2024\n";
  const Json by_note =
      shop.show("open frmMPreport" + period + "pick Combo1 ALL SUPPLIER\npress cmdView");
  EXPECT_DOUBLE_EQ(std::stod(by_note["controls"]["Text1"].get<std::string>()), in_period);
  const Json by_supplier = shop.show("open frmTotalPurchase" + period + "press cmdAss");
  EXPECT_DOUBLE_EQ(std::stod(by_supplier["controls"]["tTotal"].get<std::string>()), in_period);
  const Json by_item =
      shop.show("open frmItemPurchaseReport" + period + "pick Combo1 ALL SUPPLIERS\npress CmdDesc");
  EXPECT_DOUBLE_EQ(cell_sum(by_item, 12), in_period);
  double of_suppliers = 0;
  for (const char* name : {"Amma's Farm", "Lily", "Old & Sons"})
    of_suppliers += cell_sum(shop.show(std::string("set Combo1 ") + name + "\npress cmdView"), 12);
  EXPECT_DOUBLE_EQ(of_suppliers, in_period);
}

TEST(PurchaseStatements, ReadWordForWord) {
  const PurchaseInputs all{{"a", "b"}, {}};
  const PurchaseInputs one{{"a", "b"}, "x'y"};
  const std::string note =
      "P.GrnNo,P.BillNo,P.BillDate,P.Sname,P.GrossAmount,P.SplDiscount,P.SplDiscAmt,P.NetAmount";
  EXPECT_EQ(frmMPreport().sql(all, 0),
            "Select " + note +
                ",avg(T.MarginPer) from PurchaseTemp P Join Purchase T On "
                "P.GrnNo=T.GrnNo where P.BILLDATE>='a' and P.billdate<='b' group by " +
                note + " Order By P.GrnNo");
  EXPECT_EQ(
      frmMPreport().sql(one, 2),
      "Select " + note +
          ",avg(T.MarginPer) as Margin from PurchaseTemp P Join Purchase T On "
          "P.GrnNo=T.GrnNo where P.BILLDATE>='a' and P.billdate<='b' and P.Sname='x''y' group "
          "by " +
          note + " Order By Margin Desc");
  EXPECT_EQ(frmItemPurchaseReport().sql(one, 1),
            "Select iCODE,iName,SUM(Qty),SUM(FQty),SUM(QTY)+SUM(FQTY) as TotalQty,mrp,PurRate,"
            "PurRate*SUM(qty),sum(DiscAmt),sum(Amount),sum(iCGstAmt+iSGstAmt+iIGstAmt),sum(Total) "
            "from Purchase where BILLDATE>='a' and billdate<='b' and sname='x''y' GROUP BY "
            "ICODE,INAME,MRP,PurRate  Order by TotalQty");
  EXPECT_THAT(frmItemPurchaseReport().sql(all, 2),
              ::testing::EndsWith("'b' GROUP BY ICODE,INAME,MRP,PurRate Order by TotalQty Desc"));
  EXPECT_EQ(frmTotalPurchase().sql(all, 2),
            "Select Scode,Sname,GstNo,TaxType,sum(NetAmount) as Total from PurchaseTemp where "
            "BillDate>='a' and BillDate<='b' group by Scode,Sname,GstNo,TaxType Order by Total "
            "Desc");
  EXPECT_THAT(GoodsReceivedNote::lines_sql(frmPurBillView::viewer(), "7"),
              ::testing::EndsWith("MarginPer,iHSNcode from Purchase where GrnNo=7 ORDER BY iCODE"));
  EXPECT_THAT(GoodsReceivedNote::header_sql(frmPurchaseView::viewer(), "7"),
              ::testing::EndsWith("SplDiscAmt,NetAmount from PurchaseTemp where GrnNo=7"));
}

}  // namespace
}  // namespace tela::testing
