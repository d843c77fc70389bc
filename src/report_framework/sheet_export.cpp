#include "report_framework/sheet_export.h"

#include <string>

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/display.h"
#include "shell/failure.h"

namespace tela {

namespace {

std::string written(const std::string& text, const SheetColumn& column) {
  switch (column.form) {
    case SheetForm::as_it_is:
      break;
    case SheetForm::trimmed:
      return std::string(trimmed(text));
    case SheetForm::number:
      return format_number(text, column.mask);
    case SheetForm::date:
      if (const auto date = read_day_first(text)) return format_date(*date, column.mask);
      break;
  }
  return text;
}

std::string cell_of(const Grid& grid, int row, const SheetColumn& column) {
  if (column.col == SheetColumn::kNone) return column.text;
  return written(grid.TextMatrix(row, column.col), column) + column.text;
}

void append_rows(SheetBlock& block, const Grid& grid, const std::vector<SheetColumn>& columns) {
  for (int row = 1; row < grid.Rows(); ++row) {
    if (grid.TextMatrix(row, 1).empty()) continue;
    auto& cells = block.emplace_back();
    for (const SheetColumn& column : columns) cells.push_back(cell_of(grid, row, column));
  }
}

SheetPort& sheets_of(const AppState& app) {
  if (!app.platform.sheets) throw SheetError("There is no spreadsheet program.");
  return *app.platform.sheets;
}

void append_section(SheetBlock& block, const SheetSection& section, const Form& form) {
  block.resize(block.size() + static_cast<std::size_t>(section.gap));
  if (!section.title.empty()) block.push_back({section.title});
  auto& headings = block.emplace_back();
  for (const SheetColumn& column : section.columns) headings.push_back(column.heading);
  if (!section.grid.empty()) append_rows(block, form.grid(section.grid), section.columns);
}

}  // namespace

SheetBlock sheet_block(const SheetLayout& layout, const Form& form) {
  SheetBlock block;
  for (const SheetSection& section : layout.sections) append_section(block, section, form);
  return block;
}

void export_sheet(AppState& app, const Form& form, const SheetLayout& layout) {
  if (!layout.question.empty() &&
      app.display.message({layout.question, Icon::none, Buttons::ok_cancel, app.ShopName}) !=
          Answer::ok)
    return;
  const std::string workbook = workbook_path(layout.workbook);
  guarded(
      [&] {
        SheetPort& sheets = sheets_of(app);
        sheets.add_sheet(workbook, sheet_block(layout, form));
        app.display.message({layout.success, Icon::information, Buttons::ok, app.ShopName});
        sheets.show(workbook);
      },
      [&](const std::runtime_error& failure) {
        app.display.message({"PLEASE CREATE " + workbook, Icon::information, Buttons::ok,
                             app.ShopName, failure.what()});
      });
}

}  // namespace tela
