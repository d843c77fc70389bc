// Each screen's sheet, written from a sample grid.
#include <gtest/gtest.h>

#include "platform/sheet/sheet_csv.h"
#include "report_framework/sheet_export.h"

namespace tela {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// A form with the grid as a screen leaves it: header, the rows, an empty last row.
Control filled_grid(const std::string& name, const Rows& rows) {
  Control control = grid(name, static_cast<int>(rows.front().size()));
  control.grid->SetRows(static_cast<int>(rows.size()) + 2);
  for (int row = 0; row < static_cast<int>(rows.size()); ++row)
    for (int col = 0; col < control.grid->Cols(); ++col)
      control.grid->SetTextMatrix(
          row + 1, col, rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)]);
  return control;
}

Form form_of(const Rows& mshf, const Rows& mshf1 = {{""}}) {
  std::vector<Control> controls;
  controls.push_back(filled_grid("MSHF", mshf));
  controls.push_back(filled_grid("MSHF1", mshf1));
  return Form(std::move(controls));
}

struct LayoutCase {
  SheetLayout layout;
  Rows mshf;
  Rows mshf1;
  std::string workbook;
  std::string sheet;  // as CSV, its lines ended by LF
};

std::vector<LayoutCase> cases() {
  using namespace sheet_layouts;
  const Rows none = {{"", "", "", ""}};
  return {
      {frmDateWiseGst(),
       {{"1", "00123", "130", "05/01/2024", "1", "2.005", "3", "4", "5", "6", "7", "8", "0"}},
       none,
       "GST_TAX",
       "S.No,Start No,End No.,Bill Date,Sales 0%,Sales 5%,Tax 5%,Sales 12%,Tax 12%,Sales 18%,"
       "Tax 18%,Sales 28%,Tax 28%\n"
       "1,00123,130,05/Jan/2024,1.00,2.01,3.00,4.00,5.00,6.00,7.00,8.00,0.00\n"},
      {frmBtoB(),
       {{"1", "37AAACR", "1E5", "31/12/2023", "590", "18", "500", "90", "  RAO & SONS, GUNTUR "}},
       none,
       "Gst",
       "GSTIN,Receiver Name,Invoice Number,Invoice date,Invoice Value,Place Of Supply,"
       "Reverse Charge,Invoice Type,E-Commerce GSTIN,Rate,Taxable Value,Tax Amount\n"
       "37AAACR,\"RAO & SONS, GUNTUR\",1E5A,31/Dec/2023,590.00,37-Andhra Pradesh,N,Regular,,18.00,"
       "500.00,90.00\n"},
      {frmPurchaseReport(),
       {{"1", "37AAACR", "=1+1", "31/12/2023", "590", "18", "500", "90", " RAO "}},
       none,
       "Gst",
       "GSTIN,Invoice Number,Invoice date,Invoice Value,Place Of Supply,Reverse Charge,Invoice "
       "Type,"
       "E-Commerce GSTIN,Rate,Taxable Value,Tax Amount,Supplier Name\n"
       "37AAACR,=1+1,31/Dec/2023,590.00,,N,Regular,,18.00,500.00,90.00,RAO\n"},
      {frmHsnB2B(),
       {{"1", "0402", "3", "118", "100", "0", "9", "9"}},
       none,
       "HSN",
       "HSN,Description,UQC,Total Quantity,Total Value,Taxable Value,Integrated Tax Amount,"
       "Central Tax Amount,State/UT Tax Amount,Cess Amount\n"
       "0402,,,3.00,118.00,100.00,0.00,9.00,9.00,\n"},
      {frmSgstPurchase(),
       {{"1", "37AAACR", " B 7", "01/02/2024", "118", "100", "9", "9", " RAO "}},
       none,
       "SGST",
       "S.No.,GST No,Bill No,Bill Date,VALUE,TAXABLE,CGST,SGST,SUPPLIER NAME\n"
       "1,37AAACR, B 7,01/Feb/2024,118.00,100.00,9.00,9.00,RAO\n"},
      {frmTotPurchaseReport(),
       {{"1", "55", "37AAACR", "B7", "01/02/2024", "118", "100", "9", "9", " RAO "}},
       none,
       "SGST",
       "S.No.,GRN No,GST No,Bill No,Bill Date,VALUE,TAXABLE,CGST,SGST,SUPPLIER NAME\n"
       "1,55,37AAACR,B7,01/Feb/2024,118.00,100.00,9.00,9.00,RAO\n"},
      {frmIgstPurchase(),
       {{"1", "29AAACR", "B7", "01/02/2024", "118", "100", "18", " RAO "}},
       none,
       "IGST",
       "S.No.,GST No,Bill No,Bill Date,VALUE,TAXABLE,IGST,SUPPLIER NAME\n"
       "1,29AAACR,B7,01/Feb/2024,118.00,100.00,18.00,RAO\n"},
      {frmRateOfGstI(),
       none,
       {{"1", "118", "18", "18"}},
       "GSTRI",
       "S.No.,TOTAL PURCHASE,TAX RATE,TAX AMOUNT\n1,118.00,18.00,18.00\n"},
      {frmRateOfTax(),
       {{"1", "105", "5", "100", "5"}, {"2", "118", "18", "100", "18"}},
       {{"1", "210", "5", "10"}},
       "GSTR3",
       "S.No,TOTAL SALES,TAX RATE,TAXABLE AMT,TAX AMOUNT\n"
       "1,105.00,5.00,100.00,5.00\n2,118.00,18.00,100.00,18.00\n"
       ",,,,\n,,,,\n"
       "S.No,TOTAL PURCHASE,TAX RATE,TAX AMOUNT,\n1,210.00,5.00,10.00,\n"},
      {frmRateOfGstB2B(),
       {{"1", "105", "5", "5"}},
       none,
       "GSTR3",
       "SALES,,,\nS.No.,TOTAL SALES,TAX RATE,TAX AMOUNT\n1,105.00,5.00,5.00\n"
       ",,,\n"
       "PURCHAE,,,\nS.No.,TOTAL PURCHASE,TAX RATE,TAX AMOUNT\n"},
      {frmStockZero(),
       {{"00123", "  DAL \"A\" ", "10", "9.5", "0", "-1", "0"}},
       none,
       "Products",
       "Code,Product Name,MRP,Sale Rate,Optimum,Minimum,Stock\n"
       "00123,\"DAL \"\"A\"\"\",10.00,9.50,0.00,-1.00,0.00\n"},
  };
}

std::string with_crlf(std::string text) {
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2)
    text.insert(at, "\r");
  return text;
}

TEST(SheetLayouts, EachIsWrittenFromItsGrid) {
  for (const LayoutCase& test : cases()) {
    const Form form = form_of(test.mshf, test.mshf1);
    EXPECT_EQ(test.layout.workbook, test.workbook);
    EXPECT_EQ(sheet_csv(sheet_block(test.layout, form)), with_crlf(test.sheet));
  }
}

TEST(SheetLayouts, RowsWithoutTextInColumnOneAreLeftOutWithoutAGap) {
  const Form form = form_of({{"1", "A", "", "", "", "", "", ""},
                             {"2", "", "B7", "", "9", "9", "9", "RAO"},
                             {"3", " ", "", "no day", "much", "", "", ""}});
  const SheetBlock block = sheet_block(sheet_layouts::frmIgstPurchase(), form);
  ASSERT_EQ(block.size(), 3U);
  EXPECT_EQ(block[1], (std::vector<std::string>{"1", "A", "", "", "", "", "", ""}));
  EXPECT_EQ(block[2], (std::vector<std::string>{"3", " ", "", "no day", "much", "", "", ""}));
}

TEST(SheetLayouts, TheUsedAreaEndsWithTheLastText) {
  const UsedArea area = used_area({{"a"}, {"", "", "b", ""}, {}, {"", ""}});
  EXPECT_EQ(area.rows, 2U);
  EXPECT_EQ(area.cols, 3U);
}

}  // namespace
}  // namespace tela
