// The hands of the tours that take pictures: what they do with windows, and how a picture is saved.
#pragma once

#include <QDate>
#include <QDir>
#include <QLineEdit>
#include <QObject>
#include <QWidget>
#include <stdexcept>
#include <string>

#include "shell/app_state.h"

namespace tela {

/// The widget of that name in a window. Throws std::runtime_error if it is not there.
template <class Widget>
Widget& part(const QObject& window, const char* name) {
  if (auto* found = window.findChild<Widget*>(name)) return *found;
  throw std::runtime_error(std::string("there is no ") + name + " in the window");
}

void press_enter(QWidget& field);
void fill_in(QLineEdit& box, const QString& text);

/// How many colours a picture keeps: a window of lists and boxes is as good with few, in a third of
/// the room.
enum class Colours { all, few };

/// Lets what is on its way to the window arrive, and saves its picture as `name`.png. Throws
/// std::runtime_error if it cannot be written.
void save_picture(QWidget& window, const QDir& folder, const QString& name,
                  Colours colours = Colours::all);

/// The last day on which there are bills; today if there are none.
QDate last_day(const AppState& app);

/// Opens a chart's window in the frame and draws it for a period. Returns the window.
QWidget& view_chart(AppState& app, QWidget& frame, const std::string& screen, QDate first,
                    QDate last);
/// Chooses the type of the chart in a window.
void pick_type(const QWidget& window, const QString& type);

}  // namespace tela
