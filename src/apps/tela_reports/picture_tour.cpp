#include "apps/tela_reports/picture_tour.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <stdexcept>

#include "apps/tela_reports/tour_steps.h"
#include "display/qt/date_field.h"
#include "display/qt/grid_pane.h"
#include "display/qt/login_window.h"
#include "display/qt/main_frame.h"
#include "display/qt/preview_window.h"
#include "display/qt/screen_view.h"
#include "platform/text/date_text.h"
#include "screens/registry.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/windows.h"

namespace tela {

namespace {

constexpr QSize kFrameSize(1280, 800);
const char* const kReport = "frmDailyS_R";

}  // namespace

PictureTour::PictureTour(QtDisplay& display, AppState& app, const QDir& folder)
    : display_(display), app_(app), folder_(folder) {}

void PictureTour::run() {
  log_in();
  list_last_day();
  open_last_bill();
  charts();
  preview();
  every_screen();
}

void PictureTour::log_in() {
  LoginWindow& login = *display_.login_window();
  fill_in(part<QLineEdit>(login, "Text1"), "kestr");
  part<QLineEdit>(login, "Text2").setText("KESTR472");
  save_picture(login, folder_, "login");
  press_enter(part<QLineEdit>(login, "Text2"));
  if (!display_.main_frame()) throw std::runtime_error(app_.connection_failure);

  MainFrame& frame = *display_.main_frame();
  frame.showNormal();
  frame.resize(kFrameSize);
  part<QAction>(frame, "sales").trigger();
  save_picture(frame, folder_, "main-window");
}

void PictureTour::list_last_day() {
  MainFrame& frame = *display_.main_frame();
  part<QAction>(frame, "DailySalesReport").trigger();
  const auto& report = part<QMdiSubWindow>(frame, kReport);
  part<DateField>(report, "DTPicker1").set_date(last_day(app_));
  auto& counter = part<QComboBox>(report, "Combo1");
  counter.setEditText("ALL COUNTER");
  press_enter(counter);
  save_picture(frame, folder_, "daily-sales");
}

void PictureTour::open_last_bill() {
  MainFrame& frame = *display_.main_frame();
  GridView& bills = part<GridPane>(part<QMdiSubWindow>(frame, kReport), "MSHF").view();
  const int rows = bills.model()->rowCount();
  if (rows == 0) return;
  emit bills.doubleClicked(bills.model()->index(rows - 1, 0));
  save_picture(frame, folder_, "bill");
}

void PictureTour::charts() {
  MainFrame& frame = *display_.main_frame();
  const QDate last = last_day(app_);
  QWidget& month = view_chart(app_, frame, "frmBarChartDay", last.addDays(1 - last.day()), last);
  save_picture(month, folder_, "chart-month");
  QWidget& staff = view_chart(app_, frame, "frmBarChartUser", last.addYears(-1), last);
  pick_type(staff, "3dBar");
  save_picture(staff, folder_, "chart-staff");
}

void PictureTour::preview() {
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [this] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    save_picture(*box, folder_, "question");
    box->button(QMessageBox::Ok)->click();
  });
  answer.start(10);
  part<QPushButton>(part<QMdiSubWindow>(*display_.main_frame(), kReport), "cmdprint").click();
  if (!display_.preview_window()) throw std::runtime_error("the preview did not open");
  display_.preview_window()->showNormal();
  display_.preview_window()->resize(kFrameSize);
  save_picture(*display_.preview_window(), folder_, "preview");
}

// What the tour types into a screen: the last month, the last entry of each list, which is the one
// for all, and bounds that let everything through.
void PictureTour::fill_inputs(Screen& screen) {
  const Value last = app_.Con->execute("select max(BillDate) from SalesTemp").rows[0][0];
  const auto* day = std::get_if<Date>(&last);
  if (!day) return;
  int pickers = 0;
  int bounds = 0;
  for (const Control& control : screen.form().controls()) {
    if (control.kind == ControlKind::date) {
      const bool first_of_two = ++pickers == 1 && screen.form().has("DTP2");
      const Date shown = first_of_two ? day->year() / day->month() / 1 : *day;
      screen.set(control.name, format_date(shown, "dd/mm/yyyy"));
    }
    if (control.kind == ControlKind::combo && !control.items.empty() && control.text.empty())
      screen.pick(control.name, control.items.back());
    if (control.numeric_only && !control.locked && screen.form().has("Text2"))
      screen.set(control.name, ++bounds == 1 ? "1" : "100000");
  }
}

void PictureTour::every_screen() {
  folder_.mkpath("screens");
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->reject();
  });
  answer.start(10);
  const auto newest = [this](const char* sql) {
    const Value number = app_.Con->execute(sql).rows[0][0];
    return static_cast<std::int32_t>(field_number(number));
  };
  app_.SaleBillNo = newest("select max(BillNo) from SalesTemp");
  app_.PurBillNo = newest("select max(GrnNo) from PurchaseTemp");
  MainFrame& frame = *display_.main_frame();
  for (const ScreenEntry& entry : all_screens()) {
    Screen& screen = app_.windows.open(app_, entry.name);
    fill_inputs(screen);
    for (const char* view : {"cmdView", "CmdView"})
      if (screen.form().has(view)) screen.press(view);
    auto& window = part<QMdiSubWindow>(frame, screen.name().c_str());
    window.findChild<ScreenView*>()->mirror();
    save_picture(window, folder_, "screens/" + QString::fromStdString(screen.name()), Colours::few);
    app_.windows.close(app_, screen.name());
    app_.windows.destroy_closed();
  }
}

}  // namespace tela
