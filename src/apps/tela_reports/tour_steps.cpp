#include "apps/tela_reports/tour_steps.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPushButton>

#include "display/qt/date_field.h"
#include "shell/main_window.h"
#include "shell/windows.h"

namespace tela {

void press_enter(QWidget& field) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&field, &press);
}

void fill_in(QLineEdit& box, const QString& text) {
  box.setText(text);
  press_enter(box);
}

void save_picture(QWidget& window, const QDir& folder, const QString& name, Colours colours) {
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  QImage picture = window.grab().toImage();
  if (colours == Colours::few)
    picture.convertTo(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
  const QString file = folder.filePath(name + ".png");
  if (!picture.save(file)) throw std::runtime_error("cannot write " + file.toStdString());
}

QDate last_day(const AppState& app) {
  const Value last = app.Con->execute("select max(BillDate) from SalesTemp").rows[0][0];
  const auto* day = std::get_if<Date>(&last);
  if (!day) return QDate::currentDate();
  return {static_cast<int>(day->year()), static_cast<int>(static_cast<unsigned>(day->month())),
          static_cast<int>(static_cast<unsigned>(day->day()))};
}

QWidget& view_chart(AppState& app, QWidget& frame, const std::string& screen, QDate first,
                    QDate last) {
  constexpr QSize kChartWindow(980, 640);
  app.windows.main()->open_screen(screen);
  auto& window = part<QMdiSubWindow>(frame, screen.c_str());
  window.resize(kChartWindow);
  part<DateField>(window, "DTP1").set_date(first);
  part<DateField>(window, "DTP2").set_date(last);
  part<QPushButton>(window, "cmdView").click();
  return window;
}

void pick_type(const QWidget& window, const QString& type) {
  auto& box = part<QComboBox>(window, "Combo1");
  box.setCurrentText(type);
  emit box.textActivated(type);
}

}  // namespace tela
