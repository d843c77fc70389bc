#include "report_framework/report_grid.h"

#include <stdexcept>
#include <utility>

#include "platform/text/number_text.h"
#include "shell/database_gateway.h"

namespace tela {

ReportGrid::ReportGrid(Form& form, GridColumns columns, GridLook look)
    : form_(&form), columns_(std::move(columns)), look_(std::move(look)) {
  if (cells().Cols() != static_cast<int>(columns_.size()))
    throw std::logic_error(look_.name + " and its columns differ in number");
  for (std::size_t col = 0; col < columns_.size(); ++col) {
    cells().SetColWidth(static_cast<int>(col), columns_[col].width);
    if (!columns_[col].total.box.empty()) form_->at(columns_[col].total.box);
  }
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
  finish();
}

namespace {

std::string text_from(const CellSource& source, int row, const Recordset& rs) {
  if (source.worked_out) return source.worked_out(rs);
  if (source.field == CellSource::kRowNumber) return std::to_string(row);
  return cell_text(rs.field(source.field), source);
}

void write_row(Grid& grid, int row, const Recordset& rs, const GridColumns& columns) {
  for (std::size_t col = 0; col < columns.size(); ++col)
    grid.SetTextMatrix(row, static_cast<int>(col), text_from(columns[col].source, row, rs));
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
  for (app.RowNo = 1; !rs.eof(); rs.move_next(), ++app.RowNo)
    write_row(grid, app.RowNo, rs, columns_);
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
