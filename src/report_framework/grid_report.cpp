#include "report_framework/grid_report.h"

#include <stdexcept>
#include <utility>

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/display.h"
#include "shell/failure.h"
#include "shell/retail_tables.h"
#include "shell/windows.h"

namespace tela {

void set_widths(Grid& grid, const GridColumns& columns) {
  for (std::size_t col = 0; col < columns.size(); ++col)
    grid.SetColWidth(static_cast<int>(col), columns[col].width);
}

void write_headings(Grid& grid, const GridColumns& columns) {
  for (std::size_t col = 0; col < columns.size(); ++col)
    grid.SetTextMatrix(0, static_cast<int>(col), columns[col].header);
}

void empty_grid(Grid& grid) {
  grid.Clear();
  grid.SetRows(2);
}

namespace {

void write_row(Grid& grid, int row, const Recordset& rs, const GridColumns& columns) {
  for (std::size_t col = 0; col < columns.size(); ++col) {
    const CellSource& source = columns[col].source;
    grid.SetTextMatrix(row, static_cast<int>(col),
                       source.field == CellSource::kRowNumber
                           ? std::to_string(row)
                           : cell_text(rs.field(source.field), source));
  }
}

}  // namespace

int fill_grid(Grid& grid, Recordset& rs, const GridColumns& columns, FillSize size) {
  const int records = rs.record_count();
  const int rows = size == FillSize::exact ? records + 1 : records + 2;
  if (rows > kLastGridRow) {
    empty_grid(grid);
    throw GridError("The list has " + std::to_string(records) +
                    " rows, more than a grid can hold. Please select a shorter period.");
  }
  grid.SetRows(rows);
  int row = 1;
  for (; !rs.eof(); rs.move_next(), ++row) write_row(grid, row, rs, columns);
  return row;
}

void total_columns(Form& form, const Grid& grid, const GridColumns& columns,
                   const std::function<bool(int row)>& counts) {
  for (std::size_t col = 0; col < columns.size(); ++col) {
    const ColumnTotal& total = columns[col].total;
    if (total.box.empty()) continue;
    std::string sum = "0";
    for (int row = 1; row < grid.Rows(); ++row) {
      if (counts && !counts(row)) continue;
      sum = format_number(Val(sum) + Val(grid.TextMatrix(row, static_cast<int>(col))), total.mask);
    }
    form.set_text(total.box, sum);
  }
}

void paint_bands(Grid& grid, BandSpan span, BandColours colours) {
  for (int row = 1; row < grid.Rows(); ++row) {
    if (grid.TextMatrix(row, 0).empty()) continue;
    grid.Paint(row, {span.first, span.last, row % 2 == 0 ? colours.even : colours.odd});
  }
}

namespace {

void insert_rows(AppState& app, const Grid& grid, const Staging& staging) {
  for (app.RowNo = 1; app.RowNo < grid.Rows(); ++app.RowNo) {
    const std::string statement = staging.insert(app.RowNo);
    if (!statement.empty()) app.Con->execute(statement);
  }
}

}  // namespace

void stage_rows(AppState& app, const Grid& grid, const Staging& staging,
                StagingTransactions transactions) {
  if (transactions == StagingTransactions::clear_apart) {
    Transaction clearing(*app.Con);
    app.Con->execute(staging.clear);
    clearing.commit();
  }
  Transaction filling(*app.Con);
  if (transactions == StagingTransactions::one) app.Con->execute(staging.clear);
  insert_rows(app, grid, staging);
  filling.commit();
}

std::string quoted_cell(const Grid& grid, int row, int col) {
  return sql_quoted(trimmed(grid.TextMatrix(row, col)));
}

std::string bare_cells(const Grid& grid, int row, int first, int last) {
  std::string cells = grid.TextMatrix(row, first);
  for (int col = first + 1; col <= last; ++col) cells += "," + grid.TextMatrix(row, col);
  return cells;
}

std::string date_cell(const Grid& grid, int row, int col, std::string_view mask) {
  const std::string& text = grid.TextMatrix(row, col);
  const auto date = read_day_first(text);
  if (!date) throw std::runtime_error("\"" + text + "\" is no date.");
  return format_date(*date, mask);
}

GridReport::GridReport(AppState& app, std::string name, std::string caption,
                       std::vector<Control> controls, GridColumns columns, BandSpan bands)
    : Screen(app, std::move(name), std::move(caption), std::move(controls)),
      columns_(std::move(columns)),
      bands_(bands) {
  if (grid().Cols() != static_cast<int>(columns_.size()))
    throw std::logic_error(this->name() + ": the grid and its columns differ in number");
  for (const GridColumn& column : columns_)
    if (!column.total.box.empty()) form().at(column.total.box);
}

void GridReport::load() {
  for (const Control& control : form().controls())
    if (control.kind == ControlKind::date) form().set_date(control.name, app().platform.today());
  set_widths(grid(), columns_);
  RowHeading();
  fill_lists();
}

void GridReport::FillGrid() {
  app().RowNo = fill_grid(grid(), *app().Rs, columns_);
}

void GridReport::take_period(std::string_view first, std::string_view second,
                             std::string_view mask) {
  app().FromDate = picked_date(first, mask);
  app().ToDate = picked_date(second, mask);
}

std::string GridReport::filter() const {
  return std::string(trimmed(form().text("Combo1")));
}

void GridReport::fill_combo(std::string_view combo, std::string_view sql) {
  for (Recordset& rs = OpenRs(app(), sql); !rs.eof(); rs.move_next())
    form().at(combo).items.push_back(field_text(rs.field(0)));
  CloseRs(app());
}

std::string GridReport::picked_date(std::string_view picker, std::string_view mask) const {
  return format_date(form().date(picker), mask);
}

bool GridReport::refuse_blank(std::string_view control, const std::string& text, Icon icon) {
  if (!trimmed(form().text(control)).empty()) return false;
  tell(text, icon);
  focus(control);
  return true;
}

bool GridReport::refuse_reversed(std::string_view first, std::string_view second,
                                 const std::string& text, Icon icon) {
  if (form().date(first) <= form().date(second)) return false;
  tell(text, icon);
  focus(first);
  return true;
}

bool GridReport::ask(const std::string& question) {
  return app().display.message({question, Icon::none, Buttons::ok_cancel, app().ShopName}) ==
         Answer::ok;
}

void GridReport::tell(const std::string& text, Icon icon) {
  app().display.message({text, icon, Buttons::ok, app().ShopName});
}

std::optional<std::string> GridReport::take_counter() {
  auto counter = counter_number(form().text("Combo1"));
  if (counter) form().set_text("tCounter", *counter);
  return counter;
}

void GridReport::write_bill_labels() {
  const auto number_in = [this](int row) { return plain_number(Val(grid().TextMatrix(row, 0))); };
  pass_over([&] { form().set_text("lTotalBills", std::to_string(app().Rs->record_count())); });
  pass_over([&] { form().set_text("lStart", number_in(1)); });
  pass_over([&] { form().set_text("lEnd", number_in(app().RowNo - 1)); });
}

void GridReport::refresh_on(std::string_view button) {
  on_press(button, [this] { app().windows.refresh(app(), name()); });
}

void GridReport::close_on(std::string_view button) {
  on_press(button, [this] { app().windows.close(app(), name()); });
}

void GridReport::drill_down_on(std::string_view grid_name, int col, const std::string& target) {
  on_double_click(grid_name, [this, grid = &form().grid(grid_name), col, target] {
    app().RowNo = grid->Row();
    pass_over([&] {
      const double number = Val(grid->TextMatrix(app().RowNo, col));
      if (number <= 0) return;
      app().SaleBillNo = static_cast<std::int32_t>(number);
      app().windows.open(app(), target);
    });
  });
}

}  // namespace tela
