// Reads a workbook that is open in LibreOffice, through LibreOffice: prints each sheet's name and
// then its cells as CSV, a number behind a '#' and a formula behind an '='.
//
// usage: reader PIPE WORKBOOK
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <iostream>

#include "apps/tela_office/open_office.h"
#include "platform/csv/csv_record.h"

namespace star = com::sun::star;
using star::uno::Reference;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;

namespace {

std::string cell_text(const Reference<star::table::XCell>& cell) {
  const Reference<star::text::XTextRange> range(cell, UNO_QUERY_THROW);
  std::string text;
  switch (cell->getType()) {
    case star::table::CellContentType_TEXT:
      tela::append_csv_text(text, tela::to_utf8(range->getString()));
      break;
    case star::table::CellContentType_VALUE:
      text = "#" + tela::to_utf8(range->getString());
      break;
    case star::table::CellContentType_EMPTY:
      break;
    default:
      text = "=" + tela::to_utf8(range->getString());
  }
  return text;
}

void print_sheet(const Reference<star::sheet::XSpreadsheet>& sheet) {
  const auto cursor = sheet->createCursor();
  Reference<star::sheet::XUsedAreaCursor>(cursor, UNO_QUERY_THROW)->gotoEndOfUsedArea(false);
  const auto end =
      Reference<star::sheet::XCellRangeAddressable>(cursor, UNO_QUERY_THROW)->getRangeAddress();
  for (sal_Int32 row = 0; row <= end.EndRow; ++row) {
    for (sal_Int32 col = 0; col <= end.EndColumn; ++col)
      std::cout << (col > 0 ? "," : "") << cell_text(sheet->getCellByPosition(col, row));
    std::cout << '\n';
  }
}

int print(const Reference<star::frame::XDesktop2>& office, const std::string& name) {
  const auto all = office->getComponents()->createEnumeration();
  while (all->hasMoreElements()) {
    const Reference<star::frame::XModel> model(all->nextElement(), UNO_QUERY);
    if (!model.is() || !tela::to_utf8(model->getURL()).ends_with(name)) continue;
    const Reference<star::sheet::XSpreadsheetDocument> document(model, UNO_QUERY_THROW);
    const Reference<star::container::XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
    for (sal_Int32 i = 0; i < sheets->getCount(); ++i) {
      const Reference<star::sheet::XSpreadsheet> sheet(sheets->getByIndex(i), UNO_QUERY_THROW);
      std::cout << tela::to_utf8(document->getSheets()->getElementNames()[i]) << ":\n";
      print_sheet(sheet);
    }
    return 0;
  }
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const auto office = tela::connect_office(argv[1]);
  const int code = office.is() ? print(office, argv[2]) : 3;
  std::cout << std::flush;
  std::_Exit(code);
}
