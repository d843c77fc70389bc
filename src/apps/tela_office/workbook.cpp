#include "apps/tela_office/workbook.h"

#include <algorithm>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/lang/Locale.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <osl/file.hxx>
#include <utility>

#include "apps/tela_office/open_office.h"

namespace tela {

namespace {

namespace fs = std::filesystem;
namespace star = com::sun::star;
using rtl::OUString;
using star::uno::Any;
using star::uno::Reference;
using star::uno::Sequence;
using star::uno::UNO_QUERY;
using star::uno::UNO_QUERY_THROW;

OUString url_of(const fs::path& file) {
  OUString url;
  osl::FileBase::getFileURLFromSystemPath(from_utf8(fs::absolute(file).string()), url);
  return url;
}

bool is_file(const OUString& url, const fs::path& file) {
  OUString path;
  if (osl::FileBase::getSystemPathFromFileURL(url, path) != osl::FileBase::E_None) return false;
  std::error_code error;
  return fs::equivalent(to_utf8(path), file, error);
}

Workbook::Document open_document(const Workbook::Desktop& office, const fs::path& file) {
  const auto all = office->getComponents()->createEnumeration();
  while (all->hasMoreElements()) {
    const Any component = all->nextElement();
    const Reference<star::frame::XModel> model(component, UNO_QUERY);
    if (model.is() && is_file(model->getURL(), file)) return {component, UNO_QUERY};
  }
  return {};
}

bool can_only_be_read(const Workbook::Document& document) {
  return Reference<star::frame::XStorable>(document, UNO_QUERY_THROW)->isReadonly();
}

star::beans::PropertyValue property(const char* name, const Any& value) {
  return {OUString::createFromAscii(name), -1, value, star::beans::PropertyState_DIRECT_VALUE};
}

// Nobody has seen it yet, and nothing has been written into it.
void drop(const Reference<star::lang::XComponent>& opened) {
  const Reference<star::util::XCloseable> closeable(opened, UNO_QUERY_THROW);
  closeable->close(true);
}

Workbook::Document load(const Workbook::Desktop& office, const fs::path& file) {
  Sequence<star::beans::PropertyValue> how(2);
  how.getArray()[0] = property("Hidden", Any(true));
  how.getArray()[1] =
      property("MacroExecutionMode", Any(star::document::MacroExecMode::NEVER_EXECUTE));
  const auto opened = office->loadComponentFromURL(url_of(file), "_blank", 0, how);
  if (!opened.is())
    throw SheetError("LibreOffice does not open " + file.string() +
                     ": it is open elsewhere, or damaged.");
  Workbook::Document document(opened, UNO_QUERY);
  if (document.is() && !can_only_be_read(document)) return document;
  drop(opened);
  throw SheetError(file.string() + (document.is() ? " can only be read." : " is no spreadsheet."));
}

// A text as the office's own cells hold it, "" for a cell that is not there.
Any cell(const std::vector<std::string>& row, std::size_t col) {
  return Any(col < row.size() ? from_utf8(row[col]) : OUString());
}

Sequence<Sequence<Any>> cells_of(const SheetBlock& block, const UsedArea& area) {
  Sequence<Sequence<Any>> rows(static_cast<sal_Int32>(area.rows));
  Sequence<Any>* const out = rows.getArray();
  for (std::size_t row = 0; row < area.rows; ++row) {
    out[row].realloc(static_cast<sal_Int32>(area.cols));
    Any* const cells = out[row].getArray();
    for (std::size_t col = 0; col < area.cols; ++col) cells[col] = cell(block[row], col);
  }
  return rows;
}

sal_Int32 text_format(const Workbook::Document& document) {
  const Reference<star::util::XNumberFormatsSupplier> supplier(document, UNO_QUERY_THROW);
  const Reference<star::util::XNumberFormatTypes> types(supplier->getNumberFormats(),
                                                        UNO_QUERY_THROW);
  return types->getStandardFormat(star::util::NumberFormat::TEXT, star::lang::Locale());
}

// A name that no sheet of the workbook has, as the office itself would choose it.
OUString free_name(const Reference<star::sheet::XSpreadsheets>& sheets) {
  for (sal_Int32 n = sheets->getElementNames().getLength() + 1;; ++n) {
    const OUString name = "Sheet" + OUString::number(n);
    if (!sheets->hasByName(name)) return name;
  }
}

Reference<star::sheet::XSpreadsheet> new_sheet(const Workbook::Document& document) {
  const auto sheets = document->getSheets();
  const OUString name = free_name(sheets);
  sheets->insertNewByName(name, static_cast<sal_Int16>(sheets->getElementNames().getLength()));
  return {sheets->getByName(name), UNO_QUERY_THROW};
}

Reference<star::sheet::XSpreadsheet> last_sheet(const Workbook::Document& document) {
  const Reference<star::container::XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
  return {sheets->getByIndex(sheets->getCount() - 1), UNO_QUERY_THROW};
}

// The whole block in one call: one a cell would take minutes. The cells are made text cells first,
// so that a number in one is no number even when the user edits it.
void write(const Workbook::Document& document, const Reference<star::sheet::XSpreadsheet>& sheet,
           const SheetBlock& block) {
  const UsedArea area = used_area(block);
  if (area.rows == 0) return;
  const auto range = sheet->getCellRangeByPosition(0, 0, static_cast<sal_Int32>(area.cols) - 1,
                                                   static_cast<sal_Int32>(area.rows) - 1);
  Reference<star::beans::XPropertySet>(range, UNO_QUERY_THROW)
      ->setPropertyValue("NumberFormat", Any(text_format(document)));
  Reference<star::sheet::XCellRangeData>(range, UNO_QUERY_THROW)
      ->setDataArray(cells_of(block, area));
}

Reference<star::frame::XFrame> frame_of(const Workbook::Document& document) {
  return Reference<star::frame::XModel>(document, UNO_QUERY_THROW)
      ->getCurrentController()
      ->getFrame();
}

bool is_visible(const Reference<star::frame::XFrame>& frame) {
  return Reference<star::awt::XWindow2>(frame->getContainerWindow(), UNO_QUERY_THROW)->isVisible();
}

// A window of the user's for a document that was opened without one. (The unseen one would come up
// without its size, and would not turn to another sheet.)
void open_window(const Workbook::Desktop& office, const Workbook::Document& document) {
  Sequence<star::beans::PropertyValue> how(1);
  how.getArray()[0] = property("Model", Any(document));
  office->loadComponentFromURL("private:object", "_blank", 0, how);
}

}  // namespace

Workbook Workbook::open(const Desktop& office, const fs::path& file) {
  const Document document = open_document(office, file);
  if (!document.is()) return Workbook(office, load(office, file));
  if (can_only_be_read(document)) throw SheetError(file.string() + " is open for reading only.");
  return Workbook(office, document);
}

Workbook Workbook::find(const Desktop& office, const fs::path& file) {
  const Document document = open_document(office, file);
  if (!document.is()) throw SheetError(file.string() + " is no longer open.");
  return Workbook(office, document);
}

void Workbook::add_sheet(const SheetBlock& block) {
  const Reference<star::frame::XModel> model(document_, UNO_QUERY_THROW);
  const auto sheet = new_sheet(document_);
  const Reference<star::beans::XPropertySet> settings(document_, UNO_QUERY_THROW);
  // Painting, and the height of each row: all have that of one line.
  model->lockControllers();
  settings->setPropertyValue("IsAdjustHeightEnabled", Any(false));
  write(document_, sheet, block);
  settings->setPropertyValue("IsAdjustHeightEnabled", Any(true));
  model->unlockControllers();
}

void Workbook::show() {
  const auto hidden = frame_of(document_);
  if (!is_visible(hidden)) open_window(office_, document_);
  const auto frame = frame_of(document_);
  Reference<star::sheet::XSpreadsheetView>(frame->getController(), UNO_QUERY_THROW)
      ->setActiveSheet(last_sheet(document_));
  Reference<star::awt::XTopWindow>(frame->getContainerWindow(), UNO_QUERY_THROW)->toFront();
  if (frame != hidden) Reference<star::util::XCloseable>(hidden, UNO_QUERY_THROW)->close(true);
}

}  // namespace tela
