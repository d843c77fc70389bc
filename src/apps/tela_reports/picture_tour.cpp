#include "apps/tela_reports/picture_tour.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <stdexcept>

#include "display/qt/grid_pane.h"
#include "display/qt/login_window.h"
#include "display/qt/main_frame.h"
#include "display/qt/preview_window.h"

namespace tela {

namespace {

constexpr QSize kFrameSize(1280, 800);
const char* const kReport = "frmDailyS_R";

template <class Widget>
Widget& part(const QObject& window, const char* name) {
  if (auto* found = window.findChild<Widget*>(name)) return *found;
  throw std::runtime_error(std::string("there is no ") + name + " in the window");
}

void press_enter(QWidget& field) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&field, &press);
}

void fill_in(QLineEdit& box, const QString& text) {
  box.setText(text);
  press_enter(box);
}

// Lets what is on its way to the windows arrive.
void settle() {
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
}

}  // namespace

PictureTour::PictureTour(QtDisplay& display, AppState& app, const QDir& folder)
    : display_(display), app_(app), folder_(folder) {}

void PictureTour::run() {
  log_in();
  list_last_day();
  open_last_bill();
  preview();
}

void PictureTour::save(QWidget& window, const QString& name) {
  settle();
  const QString file = folder_.filePath(name + ".png");
  if (!window.grab().save(file)) throw std::runtime_error("cannot write " + file.toStdString());
}

void PictureTour::log_in() {
  LoginWindow& login = *display_.login_window();
  fill_in(part<QLineEdit>(login, "Text1"), "kestr");
  part<QLineEdit>(login, "Text2").setText("KESTR472");
  save(login, "login");
  press_enter(part<QLineEdit>(login, "Text2"));
  if (!display_.main_frame()) throw std::runtime_error(app_.connection_failure);

  MainFrame& frame = *display_.main_frame();
  frame.showNormal();
  frame.resize(kFrameSize);
  part<QAction>(frame, "sales").trigger();
  save(frame, "main-window");
}

void PictureTour::list_last_day() {
  MainFrame& frame = *display_.main_frame();
  part<QAction>(frame, "DailySalesReport").trigger();
  const auto& report = part<QMdiSubWindow>(frame, kReport);
  const Value last_day = app_.Con->execute("select max(BillDate) from SalesTemp").rows[0][0];
  if (const auto* day = std::get_if<Date>(&last_day))
    part<QDateEdit>(report, "DTPicker1")
        .setDate(QDate(static_cast<int>(day->year()),
                       static_cast<int>(static_cast<unsigned>(day->month())),
                       static_cast<int>(static_cast<unsigned>(day->day()))));
  auto& counter = part<QComboBox>(report, "Combo1");
  counter.setEditText("ALL COUNTER");
  press_enter(counter);
  save(frame, "daily-sales");
}

void PictureTour::open_last_bill() {
  MainFrame& frame = *display_.main_frame();
  GridView& bills = part<GridPane>(part<QMdiSubWindow>(frame, kReport), "MSHF").view();
  const int rows = bills.model()->rowCount();
  if (rows == 0) return;
  emit bills.doubleClicked(bills.model()->index(rows - 1, 0));
  save(frame, "bill");
}

void PictureTour::preview() {
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [this] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    save(*box, "question");
    box->button(QMessageBox::Ok)->click();
  });
  answer.start(10);
  part<QPushButton>(part<QMdiSubWindow>(*display_.main_frame(), kReport), "cmdprint").click();
  if (!display_.preview_window()) throw std::runtime_error("the preview did not open");
  display_.preview_window()->showNormal();
  display_.preview_window()->resize(kFrameSize);
  save(*display_.preview_window(), "preview");
}

}  // namespace tela
