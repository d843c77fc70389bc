#include "report_framework/report_grid.h"

#include <stdexcept>
#include <utility>

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "report_framework/lacking_amounts.h"
#include "shell/database_gateway.h"
#include "shell/display.h"
#include "shell/failure.h"

namespace tela {

ReportGrid::ReportGrid(Form& form, GridColumns columns, GridLook look)
    : form_(&form), columns_(std::move(columns)), look_(std::move(look)) {
  if (cells().Cols() != static_cast<int>(columns_.size()))
    throw std::logic_error(look_.name + " and its columns differ in number");
  for (std::size_t col = 0; col < columns_.size(); ++col) {
    cells().SetColWidth(static_cast<int>(col), columns_[col].width);
    if (!columns_[col].total.box.empty()) form_->at(columns_[col].total.box);
  }
  std::vector<std::string> headings;
  for (const GridColumn& column : columns_) headings.push_back(column.header);
  cells().SetHeadings(std::move(headings));
  if (look_.headed_at_load) RowHeading();
}

double ReportGrid::number(int row, int col) const {
  return Val(cell(row, col));
}

void ReportGrid::clear() const {
  cells().Clear();
  cells().SetRows(2);
}

void ReportGrid::show(AppState& app, std::string_view sql,
                      const std::function<void(Recordset&)>& with_rows) const {
  clear();
  fill(app, OpenRs(app, sql));
  if (with_rows) with_rows(*app.Rs);
  CloseRs(app);
  note_lacking(app, sql);
  finish();
}

namespace {

std::string text_from(const CellSource& source, int row, const Recordset& rs) {
  if (source.worked_out) return source.worked_out(rs);
  if (source.field == CellSource::kRowNumber) return std::to_string(row);
  return cell_text(rs.field(source.field), source);
}

bool came_too_wide(const GridColumn& column, const Recordset& rs) {
  return !column.total.box.empty() && !column.source.worked_out && column.source.field >= 0 &&
         is_overflow(field_text(rs.field(column.source.field)));
}

void write_row(Grid& grid, int row, const Recordset& rs, const GridColumns& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const int col = static_cast<int>(i);
    grid.SetTextMatrix(row, col, text_from(columns[i].source, row, rs));
    if (came_too_wide(columns[i], rs)) grid.MarkWide(row, col);
  }
}

// What a list without rows says, by the pickers of its screen.
std::string nothing_listed(const Form& form) {
  std::vector<Date> days;
  for (const Control& control : form.controls())
    if (control.kind == ControlKind::date && control.visible) days.push_back(control.date);
  if (days.empty() || days.size() > 2) return "Nothing to list.";
  const auto text = [](const Date& day) { return format_date(day, "dd/mm/yyyy"); };
  if (days.size() == 1) return "Nothing to list on " + text(days[0]) + ".";
  const std::string period = text(days[0]) + " and " + text(days[1]);
  if (days[1] < days[0])
    return "Nothing to list between " + period + ": the first date is the later one.";
  return "Nothing to list between " + period + ".";
}

}  // namespace

void ReportGrid::fill(AppState& app, Recordset& rs) const {
  const int records = rs.record_count();
  const int last = look_.size == FillSize::exact ? records : records + 1;
  if (last > kLastGridRow) {
    clear();
    throw GridError("The list has " + std::to_string(records) +
                    " rows, more than a grid can hold. Please select a shorter period.");
  }
  Grid& grid = cells();
  grid.SetRows(last + 1);
  grid.SetEmptyWords(records > 0 ? std::string() : nothing_listed(*form_));
  for (app.RowNo = 1; !rs.eof(); rs.move_next(), ++app.RowNo)
    write_row(grid, app.RowNo, rs, columns_);
}

void ReportGrid::note_lacking(AppState& app, std::string_view sql) const {
  if (cells().WideCells().empty() || !app.display.shows_notes()) return;
  LackingAmounts lacking;
  pass_over([&] {
    Recordset wide;
    wide.open(with_room_for_amounts(sql), *app.Con);
    lacking = lacking_amounts(cells(), columns_, wide);
  });
  cells().SetNote(lacking_note(*form_, cells(), columns_, lacking, look_.whole_amounts));
}

void ReportGrid::finish() const {
  RowHeading();
  ChangeCellColour();
  TotalAll();
}

void ReportGrid::RowHeading() const {
  for (std::size_t col = 0; col < columns_.size(); ++col)
    cells().SetTextMatrix(0, static_cast<int>(col), columns_[col].header);
}

void ReportGrid::TotalAll() const {
  const bool all = look_.size == FillSize::exact || look_.blank_row_counts;
  const int rows = cells().Rows() - (all ? 0 : 1);
  for (std::size_t col = 0; col < columns_.size(); ++col) {
    const ColumnTotal& total = columns_[col].total;
    if (total.box.empty()) continue;
    std::string sum = "0";
    for (int row = 1; row < rows; ++row)
      if (!look_.counted_by || number(row, *look_.counted_by) > 0)
        sum = format_number(Val(sum) + number(row, static_cast<int>(col)), total.mask);
    form_->set_text(total.box, sum);
  }
}

void ReportGrid::ChangeCellColour() const {
  if (!look_.bands) return;
  const RowBands& bands = *look_.bands;
  Grid& grid = cells();
  for (int row = 1; row < grid.Rows(); ++row)
    if (!grid.TextMatrix(row, 0).empty())
      grid.Paint(row, {bands.first, bands.last, row % 2 == 0 ? bands.even : bands.odd});
}

}  // namespace tela
