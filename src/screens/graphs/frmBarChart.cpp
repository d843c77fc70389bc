#include "screens/graphs/frmBarChart.h"

#include <stdexcept>

#include "screens/graphs/period_limits.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"

namespace tela {

frmBarChart::frmBarChart(AppState& app)
    : ChartScreen(app, "frmBarChart", " GRAPH FOR A YEAR", {},
                  tab_order(button("cmdSave", "&Save"))) {
  on_press("cmdSave", [this] { save(); });
}

std::string frmBarChart::staging_sql(const Period& period) {
  return "Insert into BarChartYear Select datename(mm,(billdate)), "
         "Month(BillDate),Year(BillDate),sum(netamount) from salestemp where billdate>='" +
         period.from + "' and billdate<'" + period.to +
         "' group by datename(mm,(billdate)),Month(BillDate),Year(BillDate)";
}

void frmBarChart::view() {
  const Period period = take_period();
  if (refused(longer_than_a_year())) return;
  stage(period);
  const auto month = labelled(trimmed_field(0));
  const auto year = labelled(field(2));
  draw(
      "select MonthName,MonthNumber,YearNo,NetAmount from BarChartYear order by YearNo,MonthNumber",
      {"Sales for a Period", [&](const Recordset& rs) { return month(rs) + " " + year(rs); },
       field(3)});
}

void frmBarChart::stage(const Period& period) {
  Transaction staging(*app().Con);
  app().Con->execute("delete from BarChartYear");
  app().Con->execute(staging_sql(period));
  staging.commit();
}

void frmBarChart::save() {
  guarded(
      [this] {
        const auto file = app().display.save_file({"Pictures (*.bmp)|*.bmp", "bmp"});
        if (!file) throw std::runtime_error("Cancel was selected.");
        if (file->empty()) return;
        const ChartPictures& pictures = app().platform.chart_pictures;
        if (!pictures.copy) throw std::runtime_error("This program draws no charts.");
        pictures.copy(chart());
        pictures.save_copied(*file);
      },
      [this](const std::runtime_error& failure) {
        app().display.message({failure.what(), Icon::none, Buttons::ok, {}});
      });
}

}  // namespace tela
