// Any screen as a window shows it, made from the controls that the screen declares: inputs and
// buttons in a row above the grid, totals and labels below it. It decides nothing: it tells the
// screen what the user does and mirrors what the screen holds.
#pragma once

#include <QBoxLayout>
#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

#include "display/qt/desktop_settings.h"
#include "display/qt/field.h"
#include "display/qt/user_events.h"
#include "shell/screen.h"

namespace tela {

class DateField;
class GridPane;

class ScreenView : public QWidget {
  Q_OBJECT

 public:
  ScreenView(Screen& screen, UserEvents& events, DesktopSettings& settings,
             QWidget* parent = nullptr);

  /// Shows the present state of every control.
  void mirror();
  /// Moves the focus to a control.
  void focus_control(std::string_view control);
  /// Moves the focus to the first control that takes it.
  void focus_first();
  /// Lets go of the screen, which is about to end.
  void detach();

  const Screen* screen() const { return screen_; }

  /// Wide enough for all columns of the grids.
  QSize sizeHint() const override;

 signals:
  /// Words for the line at the window's foot.
  void hint(const QString& words);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// A field where it stands: together with its caption, or by itself.
  struct Cell {
    ScreenField field;
    QWidget* whole;
  };

  Cell make_cell(const Control& control, bool captioned);
  FieldActions actions(const std::string& control);
  /// Inputs and buttons in rows around the grids, in the order in which they are declared.
  void lay_out_report(QVBoxLayout& column);
  /// One input a line, the buttons in a row below.
  void lay_out_form(QVBoxLayout& column);
  std::vector<DateField*> date_fields() const;
  QWidget* period_buttons_behind(const Control& control);
  /// Marks the second of two dates where it lies before the first.
  void mark_reversed_dates();
  void set_tab_order();
  void add_find_shortcut();

  /// Runs one event of the user.
  void send(const std::function<void(Screen&)>& event);
  void send_quietly(const std::function<void(Screen&)>& event);
  /// Tells the screen what a field holds, if it does not know it yet.
  void commit(const ScreenField& field);
  void commit_focused();
  /// False if a date cannot be understood: it gets the focus.
  bool dates_are_settled();
  /// Enter in a field for which the screen has no step of its own: on to the next field, and where
  /// that is the View button, it is pressed.
  void move_on(const ScreenField& field);
  bool key_pressed(const ScreenField& field, int key);
  void focus_gained(const ScreenField& field, Qt::FocusReason reason);
  void focus_lost(const ScreenField& field);

  Screen* screen_;
  UserEvents& events_;
  DesktopSettings& settings_;
  std::vector<Cell> cells_;  // in the order of the screen's controls
};

}  // namespace tela
