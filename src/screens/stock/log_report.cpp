#include "screens/stock/log_report.h"

#include <utility>

#include "report_framework/report_preview.h"
#include "report_framework/way_back.h"
#include "shell/app_state.h"
#include "shell/retail_tables.h"
#include "shell/sql_value.h"
#include "shell/windows.h"

namespace tela {

namespace {

constexpr int kCounters = 6;

std::vector<Control> controls(LogReport& log) {
  std::vector<Control> all = std::move(log.inputs);
  if (log.by_counter) all.push_back(text_box("tCounter"));
  append(all, std::move(log.buttons));
  all.push_back(grid("MSHF", static_cast<int>(log.columns.size())));
  if (!log.total_label.empty()) all.push_back(total_box("tTotal", log.total_label));
  return all;
}

}  // namespace

LogReportScreen::LogReportScreen(AppState& app, LogReport log)
    : Screen(app, log.screen, log.caption, controls(log)),
      log_(std::move(log)),
      grid_(form(), log_.columns, log_.look) {
  key_walk(log_.walk);
  on_press("cmdView", [this] { view(); });
  on_press(log_.deletion.button, [this] { delete_period(); });
  on_press(log_.preview_button, [this] { preview(); });
  if (log_.keeps_period)
    on_press("cmdRefresh", [this] { refresh(); });
  else
    refresh_on("cmdRefresh");
  close_on("cmdClose");
  if (log_.drills_down) drill_down_on("MSHF", 0, &AppState::SaleBillNo, "FrmBillView");
}

void LogReportScreen::fill_lists() {
  if (log_.by_counter) form().at("Combo1").items = counter_entries(kCounters);
}

// Where the counter is missing the grid is emptied all the same, without its headings.
void LogReportScreen::view() {
  const Period period = take_period();
  if (log_.by_counter) grid_.clear();
  if (log_.refusal && refused(*log_.refusal)) return;
  std::optional<std::string> counter;
  if (log_.by_counter) counter = take_counter(form());
  grid_.show(app(), log_.sql(period, counter));
}

std::string LogReportScreen::deleted_rows(const LogDeletion& deletion, const Period& period) {
  return "where " + deletion.date_column + ">=" + sql_text(period.from) + " and " +
         deletion.date_column + "<=" + sql_text(period.to);
}

// Of the period in the pickers, whatever the grid and the counter show.
void LogReportScreen::delete_period() {
  const LogDeletion& deletion = log_.deletion;
  const std::string rows = deleted_rows(deletion, take_period());
  if (!ask(deletion.question)) return;
  WayBack way_back(app(), name());
  way_back.begin();
  way_back.keep_removed(deletion.table, rows);
  app().Con->execute("Delete from " + deletion.table + " " + rows);
  way_back.commit();
  tell(deletion.success, Icon::information);
  view();
}

void LogReportScreen::preview() {
  if (!log_.preview) return tell(log_.no_preview, Icon::information);
  const LogPreview& preview = *log_.preview;
  if (refused(reversed("DTP1", "DTP2", preview.reversed_period))) return;
  const Period period = take_period();
  stage_rows(app(), grid_,
             {.clear = preview.clear,
              .insert = preview.insert,
              .counted_by = 1,
              .values = [&](const GridRow& row) { return preview.values(period, row); }});
  if (!ask(preview.question)) return;
  open_preview(app(), preview.report_file, preview.report_query);
}

void LogReportScreen::refresh() {
  take_period();
  grid_.clear();
  grid_.RowHeading();
  focus("DTP1");
}

}  // namespace tela
