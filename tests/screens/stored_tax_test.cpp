// The tax lists of purchases and of sales to businesses, whose lines store their tax, and the two
// commands that rewrite sale lines.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "screens/tax/frmDateWise.h"
#include "screens/tax/frmGstModifySales.h"
#include "screens/tax/frmHsnSalesReport.h"
#include "screens/tax/frmRateOfTax.h"
#include "screens/tax_shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

class StoredTax : public ::testing::Test {
 protected:
  void purchase(int grn, const std::string& type, const std::vector<std::string>& lines) {
    const std::string number = std::to_string(grn);
    shop.sql(
        "insert into PurchaseTemp (GrnNo,BillNo,BillDate,Sname,GstNo,TaxType,TotalValue,"
        "AfterDiscount,TotalCGST,TotalSGST,TotalIGST,NetAmount) values (" +
        number + ",'B" + number + " ','2024-01-05','Amma''s Mill ','37A " + number + "','" + type +
        "',300,290.5,7.5,7.25,15,315)");
    for (const std::string& line : lines) line_of(number, type, line);
  }
  void line_of(const std::string& grn, const std::string& type, const std::string& line) {
    shop.sql(
        "insert into Purchase (GrnNo,BillNo,BillDate,TaxType,Amount,iIGst,iCGstAmt,iSGstAmt,"
        "iIGstAmt) values (" +
        grn + ",'B" + grn + "','2024-01-05','" + type + "'," + line + ")");
  }
  void business_bill(int number, const std::string& type, const std::vector<std::string>& lines) {
    shop.sql("insert into SalesTemp1 values (" + std::to_string(number) +
             ",'2024-01-05',315.5,' 37B ','Lotus')");
    for (const std::string& line : lines)
      shop.sql("insert into Sales1 values (" + std::to_string(number) + ",'2024-01-05'," + line +
               ",'" + type + "')");
  }

  TaxShop shop;
};

TEST_F(StoredTax, PurchaseBillsByTheirTaxType) {
  shop.add_workbook("IGST");
  purchase(1, "SGST", {"100,5,2.5,2.5,0", "200,5,5,4.75,0"});
  purchase(2, "IGST", {"300,5,0,0,15"});
  purchase(3, "TOT", {"300,5,7.5,7.5,0"});
  const Json inside = shop.viewed("frmSgstPurchase");
  EXPECT_THAT(rows(inside), ElementsAre(ElementsAre("1", "37A 1", "B1", "05/01/2024", "315.00",
                                                    "300.00", "7.50", "7.25", "Amma's Mill")));
  EXPECT_EQ(inside["controls"]["tTotal"], "315.00");
  EXPECT_EQ(inside["controls"]["tSgst"], "7.25");
  const Json outside = shop.viewed("frmIgstPurchase");
  EXPECT_THAT(rows(outside), ElementsAre(ElementsAre("1", "37A 2", "B2", "05/01/2024", "315.00",
                                                     "300.00", "15.00", "Amma's Mill")));
  EXPECT_EQ(outside["controls"]["tCgst"], "15.00");
  shop.run("press cmdprint");
  EXPECT_EQ(shop.sheet("IGST"),
            "S.No.,GST No,Bill No,Bill Date,VALUE,TAXABLE,IGST,SUPPLIER NAME\r\n"
            "1,37A 2,B2,05/Jan/2024,315.00,300.00,15.00,Amma's Mill\r\n");
}

TEST_F(StoredTax, PurchasesByBillAndRate) {
  purchase(1, "SGST", {"100,5,2.5,2.5,0", "200,18,18,18,0", "50,5,1.25,1.25,0"});
  purchase(2, "TOT", {"100,5,2.5,2.5,0"});
  line_of("9", "", "10,12,0.6,0.6,0");  // without a header and without a tax type
  const Json state = shop.viewed("frmPurchaseReport");
  EXPECT_THAT(rows(state),
              ElementsAre(ElementsAre("1", "37A 1", "B1", "05/01/2024", "290.50", "5", "150.00",
                                      "7.50", "Amma's Mill"),
                          ElementsAre("2", "37A 1", "B1", "05/01/2024", "290.50", "18", "200.00",
                                      "36.00", "Amma's Mill"),
                          ElementsAre("3", "", "B9", "05/01/2024", "", "12", "10.00", "1.20", "")));
  EXPECT_EQ(state["controls"]["tIgst"], "360.00");
  EXPECT_EQ(state["controls"]["tCgst"], "44.70");
}

TEST_F(StoredTax, BusinessBillsByBillByCodeAndByRate) {
  business_bill(4, "SGST", {"'0401 ',2,100,5,2.5,2.5,0", "'0401',1,200,18,18,18,0"});
  business_bill(5, "IGST", {"'0401',1,50,18,0,0,9", "'1006',1,70,0,0,0,0"});
  shop.sql("insert into Sales1 values (6,'2024-01-05','1006',1,10,5,0.25,0.25,0,'SGST')");

  const Json bills = shop.viewed("frmBtoB");
  EXPECT_THAT(row(bills, 1),
              ElementsAre("1", "37B", "4", "05/01/2024", "315.50", "5", "100.00", "5.00", "Lotus"));
  EXPECT_EQ(row(bills, 2)[4], "315.50") << "the bill's value again";
  EXPECT_EQ(rows(bills).size(), 4U) << "a line without a header is left out";
  EXPECT_EQ(bills["controls"]["tIgst"], "420.00");
  EXPECT_EQ(bills["controls"]["tCgst"], "50.00");

  const Json codes = shop.viewed("frmHsnB2B");
  EXPECT_THAT(
      rows(codes),
      ElementsAre(ElementsAre("1", "1006", "1.00", "70.00", "0.00", "0.00", "0.00", "0.00"),
                  ElementsAre("2", "0401", "2.00", "100.00", "100.00", "0.00", "2.50", "2.50"),
                  ElementsAre("3", "1006", "1.00", "10.00", "10.00", "0.00", "0.25", "0.25"),
                  ElementsAre("4", "0401", "2.00", "250.00", "250.00", "9.00", "18.00", "18.00")));
  EXPECT_EQ(codes["controls"]["tBasicAmount"], "360.00");

  EXPECT_EQ(row(shop.show("open frmRateOfGstB2B"), 0)[0], "");
  const Json rates = shop.viewed("frmRateOfGstB2B");
  EXPECT_THAT(rows(rates), ElementsAre(ElementsAre("1", "110.00", "5.00", "5.50"),
                                       ElementsAre("2", "200.00", "18.00", "36.00")));
  EXPECT_EQ(rates["controls"]["tTotalSalesGst"], "41.50");
}

TEST_F(StoredTax, TwoScreensAreRefreshedIntoAnother) {
  EXPECT_THAT(shop.run("open frmHsnB2B\npress cmdRefresh"),
              ElementsAre(HasSubstr("frmHsnB2B"), R"({"closed":"frmHsnB2B"})",
                          R"({"opened":"frmHsnSalesReport"})"));
  EXPECT_THAT(shop.run("open frmRateOfGstB2B\npress cmdRefresh").back(),
              R"({"opened":"frmRateOfTax"})");
  EXPECT_THAT(shop.run("open frmRateOfGstB2B\npress cmdRefresh").back(),
              R"({"front":"frmRateOfTax"})");
}

class RewrittenLines : public StoredTax {
 protected:
  RewrittenLines() {
    shop.sell({taxed(1, 4, 118, 18),
               taxed(2, 5, 118, 18),
               taxed(3, 5, 112, 12),
               {.bill = 4, .day = 5, .amount = 50, .rate = 5, .half = 9, .code = 2}});
    shop.add_item(1, "Item", "A", "B");
    shop.sql("update Items set iHSNcode='1905',iIGst=5");
  }
  std::size_t kept() const {
    const auto folder = shop.paths().way_back();
    return std::filesystem::exists(folder) ? static_cast<std::size_t>(std::distance(
                                                 std::filesystem::directory_iterator(folder), {}))
                                           : 0;
  }
  Json rates() { return shop.sql("select BillNo,iIGst,iCGst,iSGst from Sales order by BillNo"); }

  const std::string day = "open frmGstModifySales\nset DTP1 05/01/2024\nset DTP2 05/01/2024\n";
};

TEST_F(RewrittenLines, TheItemsCodesReachAllLines) {
  const Json before = shop.sql("select BillNo,iHSNcode from Sales");
  const std::string press = "press cmdUpdate";
  EXPECT_THAT(shop.run("open frmHsnSalesReport\nset DTP1 05/01/2024\n" + press).back(),
              HasSubstr(R"("text":"DO YOU WANT TO UPDATE HSN IN The SALES BILL- (OK To Update, )"
                        R"(Cancel To Exit) ","icon":"none","buttons":"okcancel")"));
  EXPECT_EQ(shop.sql("select BillNo,iHSNcode from Sales"), before);
  EXPECT_THAT(shop.run("answer ok\n" + press).back(),
              HasSubstr(R"("Records In Sales HSN Code Updated","icon":"information")"));
  // The goods of bill 4 are on file no longer, and keep their code.
  EXPECT_EQ(shop.sql("select BillNo,iHSNcode from Sales order by BillNo"),
            Json::parse(R"([[1,"1905"],[2,"1905"],[3,"1905"],[4,"0401"]])"));
  EXPECT_EQ(kept(), 1U);
}

TEST_F(RewrittenLines, ARateMovesToAnotherInItsPeriod) {
  const Json lists = shop.show(day)["items"];
  EXPECT_EQ(lists["Combo1"], Json::parse(R"(["5","12","18"])"));
  EXPECT_EQ(lists["Combo2"], Json::parse(R"(["5"])"));
  Json state = shop.show("pick Combo1 18\npress cmdView");
  EXPECT_THAT(rows(state), ElementsAre(ElementsAre("1", "1", "0401", "Item", "10.00", "9.00",
                                                   "9.00", "9.00", "18.00")));
  EXPECT_EQ(state["grids"]["MSHF"]["rows"], 3);
  EXPECT_THAT(
      shop.run("pick Combo2 5\npress Command1"),
      ElementsAre(HasSubstr(R"("IGST Tax in Sales - Records Updated","icon":"information")")));
  EXPECT_THAT(rows(shop.show()), SizeIs(0));
  EXPECT_EQ(rates(), Json::parse("[[1,18,9,9],[2,5,2.5,2.5],[3,12,6,6],[4,5,9,9]]"));
  EXPECT_EQ(kept(), 1U);
  // The same rate again sets the halves right.
  shop.run("set Combo1 5\npress Command1");
  EXPECT_EQ(rates()[3], Json::parse("[4,5,2.5,2.5]"));
  shop.run("set Combo2 0\nset DTP1 31/01/2024\npress Command1");
  EXPECT_EQ(rates()[3][1], 5) << "a reversed period has no lines";
  shop.run("set DTP1 05/01/2024\npress Command1");
  EXPECT_EQ(rates()[1], Json::parse("[2,0,0,0]"));
}

TEST_F(RewrittenLines, ARateMustBeANumber) {
  EXPECT_THAT(
      shop.run(day + "set Combo1 1 or 1=1\npress cmdView"),
      ElementsAre(HasSubstr("opened"), HasSubstr(R"("Please Select The Tax %","icon":"critical")"),
                  R"({"focus":"Combo1"})"));
  EXPECT_THAT(shop.run("press Command1"),
              ElementsAre(HasSubstr(R"("Please Enter The Tax %","icon":"critical")"),
                          R"({"focus":"Combo1"})"));
  EXPECT_THAT(shop.run("set Combo1 18\nset Combo2 x\npress Command1"),
              ElementsAre(HasSubstr(R"("Please Emter the To Tax %","icon":"critical")"),
                          R"({"focus":"Combo2"})"));
}

// The statements are exact: joined from the screens' pieces, they read as the server has always
// been sent them.
TEST(TaxStatements, ReadWordForWord) {
  const Period period{"01/Jan/2024", "31/Jan/2024"};
  EXPECT_EQ(frmDateWise::staging(period)[1][0],
            "Insert into DailyGstTable Select BillNo,BillDate,iCGst,iSGst,Sum(Amount),Sum(Amount)/"
            "(iCGst+iSGst+100)*100 from Sales Where BillDate>='01/Jan/2024' and "
            "BillDate<='31/Jan/2024' group by BillNo,BillDate,iCGst,iSGst  ORDER By iCGst,iSGst");
  EXPECT_EQ(frmDateWise::rates_sql(period),
            "Select sum(amount),iIGst,Sum(Amount)/(iIGst+100)*100 from sales Where "
            "BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024' group by iIGst order by iIGst");
  EXPECT_EQ(frmDateWiseGst().staging(period)[1][0],
            "Insert Into SalesGst select sales.billno,sales.billdate,(case when iigst=0 then "
            "sum(amount) else 0 end) as Amount_0,(case when iigst=5 then Sum(Amount/105)*100 else "
            "0 end) as Amount_5,(case when iigst=12 then Sum(Amount/112)*100 else 0 end) as "
            "Amount_12,(case when iigst=18 then Sum(Amount/118)*100 else 0 end) as Amount_18,"
            "(case when iigst=28 then Sum(Amount/128)*100 else 0 end) as Amount_28 from sales "
            "where sales.billdate>='01/Jan/2024' and sales.billdate<='31/Jan/2024' group by "
            "sales.billno,sales.billdate,sales.iigst order by sales.billno");
  EXPECT_EQ(frmHsnSalesReport::staging(period)[1][0],
            "Insert into HsnGstReport Select iHSNcode'HSN',sum(Qty)'QTY',sum(amount)'AMOUNT',"
            "Sum(Amount)/(iCGst+iSGst+100)*100'TAXABLE',iCGst'CGST',iSGst'SGST' from sales where "
            "Billdate>='01/Jan/2024' and Billdate<='31/Jan/2024' group by iHSNcode,iCGst,iSGst");
  EXPECT_EQ(frmRateOfTax::staging(period)[1][0],
            "Insert into #GstTable Select sum(amount),iIGst,Sum(Amount)/(iIGst+CessPercent+100)"
            "*100,STR(Sum(Amount)/(iIGst+CessPercent+100)*(iIGst),10,4),CessPercent from sales "
            "Where BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024' group by iIGst,CessPercent "
            "order by iIGst,CessPercent");
  EXPECT_EQ(frmRateOfTax::purchases_sql(period),
            "Select sum(Amount),iIGst,sum(iCGstAmt + iSGstAmt + iIGstAmt) from Purchase where "
            "BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024' and TaxType='SGST' group by iIGst "
            "order by iIGst");
  EXPECT_EQ(frmRateOfGstB2B().sql(period),
            "Select sum(Amount),iIGst,sum(iCGstAmt + iSGstAmt + iIGstAmt) from Sales1 where "
            "BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024'  and TaxType='SGST' group by "
            "iIGst order by iIGst");
  EXPECT_EQ(frmIgstPurchase().sql(period),
            "Select GstNo,BillNo,BillDate,NetAmount,TotalValue,TotalIGST,Sname FROM PurchaseTemp "
            "where BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024' AND TaxType='IGST'");
  EXPECT_EQ(frmBtoB().sql(period),
            "Select ST.GstNo,ST.BillNo,ST.BillDate,ST.NetAmount,S.iIGst,sum(S.Amount),"
            "sum(S.iCGstAmt + S.iSGstAmt + S.iIGstAmt),ST.Cname from  Sales1 S Join SalesTemp1 ST "
            "on S.BillNo=ST.BillNo where ST.Billdate>='01/Jan/2024' and "
            "ST.Billdate<='31/Jan/2024' group by ST.GstNo,ST.BillNo,ST.BillDate,ST.NetAmount,"
            "S.iIGst,ST.Cname order by ST.BillNo,S.iIGst");
  const frmGstModifySales::Inputs inputs{period, "18", "5"};
  EXPECT_EQ(frmGstModifySales::sql(inputs),
            "Select icode,iHSNcode,iname,mrp,saleRate,iCGst,iSGst,iIGst from sales where "
            "BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024' and iIGst=18 group by icode,"
            "iHSNcode,iname,mrp,saleRate,iCGst,iSGst,iIGst order by iCode");
  EXPECT_EQ(frmGstModifySales::update_sql(inputs),
            "Update Sales Set iIGst=5,iCGst=2.5,iSGst=2.5 where iIGst=18 and "
            "BillDate>='01/Jan/2024' and BillDate<='31/Jan/2024'");
}

}  // namespace
}  // namespace tela::testing
