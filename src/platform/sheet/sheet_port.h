// The spreadsheet program: what the reports ask of it, whatever stands behind it.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tela {

/// Why a sheet did not come into its workbook, in words for the user.
class SheetError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The cells of a worksheet from its upper left corner on, row by row. Every cell is a text and
/// stays one: "00123", "1E5" and "=1+1" are not read. An empty text leaves its cell empty, as does
/// a row that is shorter than others.
using SheetBlock = std::vector<std::vector<std::string>>;

/// The workbooks of the shop. One lives as long as the program.
class SheetPort {
 public:
  virtual ~SheetPort() = default;

  /// Adds a worksheet to a workbook and writes the block into it. The workbook, whose path is one
  /// of the shop's machine ("D:\Tela_Supermarket\SGST.xls"), must be there; it is neither saved nor
  /// closed, and the sheets that it has stay. Throws SheetError.
  virtual void add_sheet(const std::string& workbook, const SheetBlock& block) = 0;

  /// Shows the user a workbook that a sheet was added to. Throws SheetError.
  virtual void show(const std::string& workbook) = 0;
};

/// The name of a workbook, which is that of its file: "SGST" of the path above.
std::string_view workbook_name(std::string_view workbook);

/// The part of a worksheet that holds text, counted from its upper left corner.
struct UsedArea {
  std::size_t rows = 0;
  std::size_t cols = 0;
};
UsedArea used_area(const SheetBlock& block);

}  // namespace tela
