#include "apps/tela_reports/picture_tour.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <stdexcept>

#include "apps/tela_reports/tour_steps.h"
#include "display/qt/grid_pane.h"
#include "display/qt/login_window.h"
#include "display/qt/main_frame.h"
#include "display/qt/preview_window.h"

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
  part<QDateEdit>(report, "DTPicker1").setDate(last_day(app_));
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

}  // namespace tela
