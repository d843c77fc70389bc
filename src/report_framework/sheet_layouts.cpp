#include "report_framework/sheet_layouts.h"

#include <utility>

namespace tela {

std::string workbook_path(std::string_view name) {
  return "D:\\Tela_Supermarket\\" + std::string(name) + ".xls";
}

namespace {

SheetColumn plain(std::string heading, int col) {
  return {std::move(heading), col};
}
SheetColumn trimmed(std::string heading, int col) {
  return {std::move(heading), col, SheetForm::trimmed};
}
SheetColumn number(std::string heading, int col, std::string mask = "#######0.00") {
  return {std::move(heading), col, SheetForm::number, std::move(mask)};
}
SheetColumn date(std::string heading, int col) {
  return {std::move(heading), col, SheetForm::date, "dd/mmm/yyyy"};
}
SheetColumn with_suffix(SheetColumn column, std::string suffix) {
  column.text = std::move(suffix);
  return column;
}
/// The same text in every row.
SheetColumn fixed(std::string heading, std::string text) {
  return with_suffix({std::move(heading)}, std::move(text));
}
SheetColumn empty(std::string heading) {
  return {std::move(heading)};
}

// What was bought at each rate of tax.
std::vector<SheetColumn> purchases_by_rate() {
  return {plain("S.No.", 0), number("TOTAL PURCHASE", 1), number("TAX RATE", 2),
          number("TAX AMOUNT", 3)};
}

}  // namespace

namespace sheet_layouts {

SheetLayout frmDateWiseGst() {
  return {"GST_TAX",
          {{.grid = "MSHF",
            .columns = {plain("S.No", 0), plain("Start No", 1), plain("End No.", 2),
                        date("Bill Date", 3), number("Sales 0%", 4), number("Sales 5%", 5),
                        number("Tax 5%", 6), number("Sales 12%", 7), number("Tax 12%", 8),
                        number("Sales 18%", 9), number("Tax 18%", 10), number("Sales 28%", 11),
                        number("Tax 28%", 12)}}}};
}

SheetLayout frmBtoB() {
  return {"Gst",
          {{.grid = "MSHF",
            .columns = {plain("GSTIN", 1), trimmed("Receiver Name", 8),
                        with_suffix(plain("Invoice Number", 2), "A"), date("Invoice date", 3),
                        number("Invoice Value", 4), fixed("Place Of Supply", "37-Andhra Pradesh"),
                        fixed("Reverse Charge", "N"), fixed("Invoice Type", "Regular"),
                        empty("E-Commerce GSTIN"), number("Rate", 5), number("Taxable Value", 6),
                        number("Tax Amount", 7)}}}};
}

SheetLayout frmPurchaseReport() {
  return {"Gst",
          {{.grid = "MSHF",
            .columns = {plain("GSTIN", 1), plain("Invoice Number", 2), date("Invoice date", 3),
                        number("Invoice Value", 4), empty("Place Of Supply"),
                        fixed("Reverse Charge", "N"), fixed("Invoice Type", "Regular"),
                        empty("E-Commerce GSTIN"), number("Rate", 5), number("Taxable Value", 6),
                        number("Tax Amount", 7), trimmed("Supplier Name", 8)}}}};
}

SheetLayout frmHsnB2B() {
  return {"HSN",
          {{.grid = "MSHF",
            .columns = {plain("HSN", 1), empty("Description"), empty("UQC"),
                        number("Total Quantity", 2), number("Total Value", 3),
                        number("Taxable Value", 4), number("Integrated Tax Amount", 5),
                        number("Central Tax Amount", 6), number("State/UT Tax Amount", 7),
                        empty("Cess Amount")}}}};
}

SheetLayout frmSgstPurchase() {
  return {"SGST",
          {{.grid = "MSHF",
            .columns = {plain("S.No.", 0), plain("GST No", 1), plain("Bill No", 2),
                        date("Bill Date", 3), number("VALUE", 4), number("TAXABLE", 5),
                        number("CGST", 6), number("SGST", 7), trimmed("SUPPLIER NAME", 8)}}}};
}

SheetLayout frmTotPurchaseReport() {
  return {
      "SGST",
      {{.grid = "MSHF",
        .columns = {plain("S.No.", 0), plain("GRN No", 1), plain("GST No", 2), plain("Bill No", 3),
                    date("Bill Date", 4), number("VALUE", 5), number("TAXABLE", 6),
                    number("CGST", 7), number("SGST", 8), trimmed("SUPPLIER NAME", 9)}}}};
}

SheetLayout frmIgstPurchase() {
  return {"IGST",
          {{.grid = "MSHF",
            .columns = {plain("S.No.", 0), plain("GST No", 1), plain("Bill No", 2),
                        date("Bill Date", 3), number("VALUE", 4), number("TAXABLE", 5),
                        number("IGST", 6), trimmed("SUPPLIER NAME", 7)}}}};
}

SheetLayout frmRateOfGstI() {
  return {"GSTRI", {{.grid = "MSHF1", .columns = purchases_by_rate()}}};
}

SheetLayout frmRateOfTax() {
  return {"GSTR3",
          {{.grid = "MSHF",
            .columns = {plain("S.No", 0), number("TOTAL SALES", 1), number("TAX RATE", 2),
                        number("TAXABLE AMT", 3), number("TAX AMOUNT", 4)}},
           {.gap = 2,
            .grid = "MSHF1",
            .columns = {plain("S.No", 0), number("TOTAL PURCHASE", 1), number("TAX RATE", 2),
                        number("TAX AMOUNT", 3)}}}};
}

SheetLayout frmRateOfGstB2B() {
  return {"GSTR3",
          {{.title = "SALES",
            .grid = "MSHF",
            .columns = {plain("S.No.", 0), number("TOTAL SALES", 1), number("TAX RATE", 2),
                        number("TAX AMOUNT", 3)}},
           // The screen shows no purchases: the headings stand for what is filled in by hand.
           {.gap = 1, .title = "PURCHAE", .columns = purchases_by_rate()}}};
}

SheetLayout frmStockZero() {
  const std::string mask = "######0.00";
  return {.workbook = "Products",
          .sections = {{.grid = "MSHF",
                        .columns = {plain("Code", 0), trimmed("Product Name", 1),
                                    number("MRP", 2, mask), number("Sale Rate", 3, mask),
                                    number("Optimum", 4, mask), number("Minimum", 5, mask),
                                    number("Stock", 6, mask)}}},
          .question = "EXPORT TO EXCEL THIS LIST  - (OK To EXPORT, Cancel To EXIT) ",
          .success = "Records Exported Sucessfully"};
}

}  // namespace sheet_layouts

}  // namespace tela
