// A workbook that is open in LibreOffice.
#pragma once

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <filesystem>

#include "platform/sheet/sheet_port.h"

namespace tela {

/// Failures are com::sun::star::uno::Exception where the office has them, else SheetError.
class Workbook {
 public:
  using Desktop = com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>;
  using Document = com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>;

  /// The workbook as it is open, else opened for it without being shown. One that can only be read,
  /// since somebody else has it open, is refused.
  static Workbook open(const Desktop& office, const std::filesystem::path& file);

  /// The workbook that is open.
  static Workbook find(const Desktop& office, const std::filesystem::path& file);

  /// Adds a worksheet behind the others, with all cells as texts.
  void add_sheet(const SheetBlock& block);

  /// Shows the workbook, its last worksheet in front.
  void show();

 private:
  Workbook(const Desktop& office, const Document& document)
      : office_(office), document_(document) {}

  Desktop office_;
  Document document_;
};

}  // namespace tela
