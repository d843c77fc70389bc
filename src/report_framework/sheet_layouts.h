// What the screens write into their workbooks: the layout of each screen's sheet as data.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tela {

/// How the text of a grid's cell is written into the sheet.
enum class SheetForm {
  as_it_is,
  trimmed,  ///< without blanks at both ends
  number,   ///< under a number mask; a text that is no number stays as it is
  date,     ///< read day first and written under a date mask; a text that is no date stays
};

/// One column of a sheet: its heading, and the cells below it.
struct SheetColumn {
  std::string heading;
  int col = kNone;  ///< the grid's column that the cells come from
  SheetForm form = SheetForm::as_it_is;
  std::string mask = {};
  std::string text = {};  ///< stands in every cell, behind what comes from the grid

  static constexpr int kNone = -1;
};

/// A part of a sheet: a heading row, and a row for each grid row that has text in column 1.
struct SheetSection {
  int gap = 0;             ///< empty rows ahead of it
  std::string title = {};  ///< a row of its own above the headings, unless it is empty
  std::string grid = {};   ///< the grid that its rows come from; with none it has no rows
  std::vector<SheetColumn> columns = {};
};

struct SheetLayout {
  std::string workbook;  ///< its name, one of kWorkbooks
  std::vector<SheetSection> sections;
  std::string question = {};  ///< asked ahead of the export, unless it is empty
  std::string success = "Exported to Excell Sucessfully";
};

/// All workbooks by name.
inline constexpr std::array<std::string_view, 8> kWorkbooks = {
    "GSTR3", "GSTRI", "SGST", "IGST", "HSN", "Gst", "GST_TAX", "Products"};

/// The path of a workbook on the shop's machine.
std::string workbook_path(std::string_view name);

/// The layouts, each under the name of its screen.
namespace sheet_layouts {
SheetLayout frmDateWiseGst();
SheetLayout frmBtoB();
SheetLayout frmPurchaseReport();
SheetLayout frmHsnB2B();
SheetLayout frmSgstPurchase();
SheetLayout frmTotPurchaseReport();
SheetLayout frmIgstPurchase();
SheetLayout frmRateOfGstI();
SheetLayout frmRateOfTax();
SheetLayout frmRateOfGstB2B();
SheetLayout frmStockZero();
}  // namespace sheet_layouts

}  // namespace tela
