#include "apps/tela_reports/chart_tour.h"

#include <QComboBox>
#include <stdexcept>

#include "apps/tela_reports/tour_steps.h"
#include "display/qt/main_frame.h"
#include "shell/database_gateway.h"
#include "shell/main_window.h"
#include "shell/owner_login.h"
#include "shell/windows.h"

namespace tela {

namespace {

// The item that was sold at the most rates, so that there is something to see.
std::string item_of_many_rates(const AppState& app) {
  const RowSet found = app.Con->execute(
      "select top 1 iCode,max(SaleRate)-min(SaleRate) from Sales group by iCode order by "
      "max(SaleRate)-min(SaleRate) desc");
  return found.rows.empty() ? "0" : field_text(found.rows[0][0]);
}

}  // namespace

ChartTour::ChartTour(QtDisplay& display, AppState& app, const QDir& folder)
    : display_(display), app_(app), folder_(folder) {}

void ChartTour::run() {
  app_.windows.login()->enter_at_full_level();
  MainFrame* frame = display_.main_frame();
  if (!frame) throw std::runtime_error(app_.connection_failure);
  frame->showNormal();
  frame->resize(1280, 800);
  const QDate last = last_day(app_);
  const QDate year = last.addYears(-1).addDays(1);
  save_types("frmBarChart", year);
  save_types("frmBarChartDay", last.addDays(1 - last.day()));
  for (const char* screen : {"frmBarChartCatagory", "frmBarChartCounter", "frmBarChartUser"})
    save_types(screen, year);
  app_.windows.main()->open_screen("frmBarChartCost");
  fill_in(part<QLineEdit>(*frame, "Text1"), QString::fromStdString(item_of_many_rates(app_)));
  save_types("frmBarChartCost", year);
}

void ChartTour::save_types(const std::string& screen, QDate first) {
  QWidget& window = view_chart(app_, *display_.main_frame(), screen, first, last_day(app_));
  const QString name = QString::fromStdString(screen);
  const auto& types = part<QComboBox>(window, "Combo1");
  for (int type = 0; type < types.count(); ++type) {
    pick_type(window, types.itemText(type));
    save_picture(window, folder_, name + '-' + types.itemText(type));
  }
}

}  // namespace tela
