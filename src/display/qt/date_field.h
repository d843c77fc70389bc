// A field for a date, typed the way people type one.
#pragma once

#include <QDate>
#include <QLineEdit>
#include <functional>

#include "platform/text/calendar.h"

namespace tela {

/// The same day in Qt's terms; no date where `date` is none.
QDate to_qt(const Date& date);

/// Takes what `read_typed_date` reads, whatever stands there and wherever the cursor is: the first
/// key types a new date. The date is read when the field is settled, and shown as "dd/MM/yyyy";
/// what is no date stays, marked, and the last date goes on to count. T is today, Up and Down
/// change the part at the cursor, Alt+Down and F4 drop a calendar down, Escape goes back to the
/// last date.
class DateField : public QLineEdit {
  Q_OBJECT

 public:
  /// `today` is asked whenever the present day is needed.
  explicit DateField(std::function<Date()> today, QWidget* parent = nullptr);

  /// The last date that was understood.
  QDate date() const { return date_; }
  /// Takes a date as if it had been typed.
  void set_date(QDate date);
  /// Shows the program's date. What is being typed, or was refused, stays while that is the same.
  void show_date(QDate date);

  /// Marks the date as one that lies before the first of its pair, or takes that mark away.
  void mark_reversed(bool reversed);

  /// Reads what was typed. False, with the mark and `refused`, if it is no date.
  bool settle();

  /// As wide as a date and the calendar's button.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void date_changed(QDate date);
  /// What is in the field is no date; `words` say so.
  void refused(const QString& words);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void show_text();
  void mark(bool refused);
  void show_marks();
  void refuse();
  /// Adds to the day, month or year at the cursor.
  void step(int by);
  void open_calendar();

  std::function<Date()> today_;
  QDate date_;
  bool is_edited_ = false;   // the text is not that of `date_`
  bool starts_anew_ = true;  // the next key begins a new date
  bool is_marked_ = false;   // what was typed is no date
  bool is_reversed_ = false;
};

}  // namespace tela
