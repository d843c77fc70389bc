#include "screens/profit/profit_report.h"

#include <stdexcept>
#include <utility>

#include "platform/text/number_text.h"
#include "report_framework/busy_pointer.h"
#include "report_framework/report_preview.h"
#include "shell/app_state.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls(ProfitDefinition& definition) {
  std::vector<Control> all = std::move(definition.filters);
  append(all, tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
                        button("cmdView", "&View"), picture_button("cmdAss", "ascending"),
                        picture_button("CmdDesc", "descending"), button("cmdRefresh", "&Refresh"),
                        button("cmdprint", "Previe&w"), button("cmdClose", "&Close"),
                        grid("MSHF", static_cast<int>(definition.columns.size())),
                        total_box("tTotalSales", "TOTAL SALE RATE"),
                        total_box("tTotalPurchase", "TOTAL PURCHASE RATE"),
                        total_box("tTotalProfit", "TOTAL PROFIT")));
  append(all, std::move(definition.results));
  append(all, tab_order(total_box("tMargin", "PROFIT  %").hinted(kAverageHint),
                        label("tTotalRows").with_text("0")));
  return all;
}

}  // namespace

ProfitReport::ProfitReport(AppState& app, ProfitDefinition definition)
    : Screen(app, definition.screen, definition.caption, controls(definition)),
      percent_column_(definition.percent_column),
      list_sql_(std::move(definition.list_sql)),
      staged_(std::move(definition.staged)),
      grid_(form(), definition.columns, {.bands = RowBands{1, definition.percent_column}}) {
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
  const Period period = take_period();
  grid_.clear();
  BusyPointer busy(app().display);
  with_staged_lines(period, order, [&] {
    grid_.show(app(), list_sql_(order));
    busy.end();
    write_totals();
  });
}

void ProfitReport::write_totals() {
  write_total_profit(form(), grid_);
  form().set_text("tMargin", "0");
  form().set_text("tTotalRows", "0");
  write_average(app(), form(), grid_, {percent_column_, 0, "tMargin", "#######0.00", "######0.00"});
}

void ProfitReport::preview() {
  if (refused(reversed("DTP1", "DTP2", kReversedProfitPeriod))) return;
  preview_profit(app(), grid_, take_period(), staged_);
}

void write_total_profit(Form& form, const ReportGrid& grid) {
  const double profit = Val(form.text("tTotalSales")) - Val(form.text("tTotalPurchase"));
  form.set_text("tTotalProfit",
                grid.cells().Rows() > 1 ? format_number(profit, "######0.00") : "0");
}

void preview_profit(AppState& app, const ReportGrid& grid, const Period& period,
                    const StagedProfit& staged) {
  const auto values = [&](const GridRow& row) {
    std::vector<std::string> all = {sql_text(period.from), sql_text(period.to)};
    for (std::string& value : staged(row)) all.push_back(std::move(value));
    return all;
  };
  stage_rows(app, grid,
             {.clear = "Delete from MonthlyProfit",
              .insert = "Insert into MonthlyProfit values(",
              .values = values});
  open_preview(app, "MonthlyProfitPri.rpt", "SELECT * FROM MonthlyProfit");
}

void write_average(AppState& app, Form& form, const ReportGrid& grid,
                   const ColumnAverage& average) {
  app.ProfitSum = 0;
  int last = 0;
  for (int row = 1; row < grid.cells().Rows(); ++row) {
    if (grid.number(row, average.numbered) <= 0) continue;
    app.ProfitSum =
        Val(format_number(app.ProfitSum + grid.number(row, average.column), average.sum_mask));
    last = row;
  }
  if (last == 0) return;
  form.set_text("tTotalRows", std::to_string(last));
  form.set_text(average.box, format_number(app.ProfitSum / last, average.box_mask));
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
