#include "screens/profit/profit_report.h"

#include <stdexcept>
#include <utility>

#include "platform/text/number_text.h"
#include "report_framework/busy_pointer.h"
#include "report_framework/report_preview.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"

namespace tela {

namespace {

std::vector<Control> controls(ProfitDefinition& definition) {
  std::vector<Control> all = std::move(definition.filters);
  all.push_back(date_picker("DTP1", "FROM"));
  all.push_back(date_picker("DTP2", "TO"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(picture_button("cmdAss", "ascending"));
  all.push_back(picture_button("CmdDesc", "descending"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(button("cmdClose", "&Close"));
  all.push_back(grid("MSHF", static_cast<int>(definition.columns.size())));
  all.push_back(total_box("tTotalSales", "TOTAL SALE RATE"));
  all.push_back(total_box("tTotalPurchase", "TOTAL PURCHASE RATE"));
  all.push_back(total_box("tTotalProfit", "TOTAL PROFIT"));
  for (Control& result : definition.results) all.push_back(std::move(result));
  all.push_back(total_box("tMargin", "PROFIT  %"));
  all.push_back(label("tTotalRows").with_text("0"));
  return all;
}

}  // namespace

ProfitReport::ProfitReport(AppState& app, ProfitDefinition definition)
    : GridReport(app, definition.screen, definition.caption, controls(definition),
                 definition.columns, {1, definition.percent_column}),
      percent_column_(definition.percent_column),
      list_sql_(std::move(definition.list_sql)),
      staging_row_(std::move(definition.staging_row)) {
  key_walk({"DTP1", "DTP2"});
  on_key("DTP2", Key::enter, [this] { list(ProfitOrder::key); });
  on_press("cmdView", [this] { list(ProfitOrder::key); });
  on_press("cmdAss", [this] { list(ProfitOrder::percent_rising); });
  on_press("CmdDesc", [this] { list(ProfitOrder::percent_falling); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void ProfitReport::list(ProfitOrder order) {
  if (!may_list(order)) return;
  app().FromDate = picked_date("DTP1");
  app().ToDate = picked_date("DTP2", "DD/MMM/YYYY");
  empty_grid(grid());
  BusyPointer busy(app().display);
  with_staged_lines(order, [&] {
    fill(order);
    busy.end();
    write_totals();
  });
}

void ProfitReport::fill(ProfitOrder order) {
  OpenRs(app(), list_sql_(order));
  FillGrid();
  CloseRs(app());
  RowHeading();
}

void ProfitReport::write_totals() {
  TotalAll();
  const double profit = Val(form().text("tTotalSales")) - Val(form().text("tTotalPurchase"));
  form().set_text("tTotalProfit", grid().Rows() > 1 ? format_number(profit, "######0.00") : "0");
  ChangeCellColour();
  write_average(app(), form(), grid(),
                {percent_column_, 0, "tMargin", "#######0.00", "######0.00"});
}

void ProfitReport::preview() {
  if (refuse_reversed("DTP1", "DTP2", "The Start Date Is Greater Than The End Date",
                      Icon::critical))
    return;
  take_period();
  const auto insert = [this](int row) -> std::string {
    if (Val(grid().TextMatrix(row, 0)) <= 0) return {};
    return "Insert into MonthlyProfit values('" + app().FromDate + "','" + app().ToDate + "'," +
           staging_row_(grid(), row) + ")";
  };
  stage_rows(app(), grid(), {"Delete from MonthlyProfit", insert}, StagingTransactions::one);
  open_preview(app(), "MonthlyProfitPri.rpt", "SELECT * FROM MonthlyProfit");
}

void write_average(AppState& app, Form& form, const Grid& grid, const ColumnAverage& average) {
  app.ProfitSum = 0;
  int last = 0;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (Val(grid.TextMatrix(row, average.numbered)) <= 0) continue;
    const double cell = Val(grid.TextMatrix(row, average.column));
    app.ProfitSum = Val(format_number(app.ProfitSum + cell, average.sum_mask));
    last = row;
  }
  form.set_text("tTotalRows", std::to_string(last));
  form.set_text(average.box,
                last > 0 ? format_number(app.ProfitSum / last, average.box_mask) : "0");
}

std::string percent_case(const std::string& alias, const std::string& hundred) {
  const std::string quantity = alias + "qty";
  const std::string profit = "((" + quantity + " * " + alias + "salerate)-(" + quantity + " * " +
                             alias + "purrate))*" + hundred + "/(" + quantity + " * " + alias +
                             "purrate)";
  return "(Case when " + alias + "Qty<0 and " + alias + "PurRate>0 Then " + profit + "*-1 when " +
         alias + "Qty<0 and " + alias + "PurRate=0 then -100 when " + alias + "Qty>0 and " + alias +
         "purrate=0 then 100 else " + profit + " end) As ProfitPercent";
}

void execute_profit(AppState& app, const std::string& sql) {
  guarded([&] { app.Con->execute(sql); },
          [](const std::runtime_error& failure) {
            const std::string words = failure.what();
            if (words.find("ivide by zero") == std::string::npos) throw;
            throw std::runtime_error(
                "A bill line of this period has the quantity 0, so its profit percentage cannot be "
                "worked out. Please correct that line first. (" +
                words + ")");
          });
}

}  // namespace tela
