#include "display/qt/date_field.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QToolTip>
#include <QVBoxLayout>

#include "display/qt/look.h"
#include "platform/text/date_text.h"

namespace tela {

namespace {

const char* const kDateFormat = "dd/MM/yyyy";

bool is_printable(const QKeyEvent& key) {
  const bool is_command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  return !is_command && !key.text().isEmpty() && key.text().at(0).isPrint();
}

bool asks_for_calendar(const QKeyEvent& key) {
  return (key.key() == Qt::Key_F4 && key.modifiers() == Qt::NoModifier) ||
         (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
}

QString typing_help() {
  return DateField::tr("The day first: 31/3/2026, 31-3, 310326. T is today, Alt+Down a calendar.");
}

}  // namespace

QDate to_qt(const Date& date) {
  if (!date.ok()) return {};
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

DateField::DateField(std::function<Date()> today, QWidget* parent)
    : QLineEdit(parent), today_(std::move(today)) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setToolTip(typing_help());
  QAction* calendar = addAction(drawn_icon("calendar"), QLineEdit::TrailingPosition);
  calendar->setText(tr("Calendar"));
  calendar->setToolTip(tr("Calendar (F4)"));
  connect(calendar, &QAction::triggered, this, &DateField::open_calendar);
  connect(this, &QLineEdit::textEdited, this, [this] {
    is_edited_ = true;
    starts_anew_ = false;
    mark(false);
  });
}

QSize DateField::sizeHint() const {
  constexpr int kCharacters = 17;
  return {kCharacters * fontMetrics().averageCharWidth(), QLineEdit::sizeHint().height()};
}

void DateField::set_date(QDate date) {
  const bool is_new = date != date_;
  date_ = date;
  show_text();
  if (is_new) emit date_changed(date);
}

void DateField::show_date(QDate date) {
  if (!date.isValid() || (is_edited_ && date == date_)) return;
  if (date == date_ && !text().isEmpty()) return;
  date_ = date;
  show_text();
}

void DateField::show_text() {
  is_edited_ = false;
  starts_anew_ = true;
  mark(false);
  const int cursor = cursorPosition();
  setText(date_.toString(kDateFormat));
  setCursorPosition(cursor);
}

bool DateField::settle() {
  if (!is_edited_) return true;
  const auto read = read_typed_date(text().toStdString(), today_());
  if (read)
    set_date(to_qt(*read));
  else
    refuse();
  return read.has_value();
}

void DateField::refuse() {
  mark(true);
  const QString words = tr("“%1” is no date. The day comes first: 31/3/2026.").arg(text());
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), words, this);
  emit refused(words);
}

void DateField::mark(bool refused) {
  if (refused == is_marked_) return;
  is_marked_ = refused;
  show_marks();
}

void DateField::mark_reversed(bool reversed) {
  if (reversed == is_reversed_) return;
  is_reversed_ = reversed;
  show_marks();
}

void DateField::show_marks() {
  mark_field(*this, is_marked_ || is_reversed_);
  if (is_reversed_ && !is_marked_) setAccessibleDescription(tr("before the first date"));
  setToolTip(is_reversed_ ? tr("This date lies before the first one.") : typing_help());
}

void DateField::step(int by) {
  const bool is_day = hasSelectedText() || cursorPosition() <= 2;
  const bool is_month = !is_day && cursorPosition() <= 5;
  const int cursor = is_day ? 0 : is_month ? 3 : 6;
  set_date(is_day ? date_.addDays(by) : is_month ? date_.addMonths(by) : date_.addYears(by));
  deselect();
  setCursorPosition(cursor);
}

void DateField::open_calendar() {
  if (isReadOnly()) return;
  settle();
  auto* frame = new QFrame(this, Qt::Popup);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setFrameShape(QFrame::StyledPanel);
  auto* calendar = new QCalendarWidget;
  calendar->setFirstDayOfWeek(Qt::Monday);
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setSelectedDate(date_);
  const auto choose = [this, frame](QDate day) {
    frame->close();
    set_date(day);
  };
  connect(calendar, &QCalendarWidget::clicked, this, choose);
  connect(calendar, &QCalendarWidget::activated, this, choose);
  auto* layout = new QVBoxLayout(frame);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(calendar);
  frame->move(mapToGlobal(rect().bottomLeft()));
  frame->show();
  calendar->setFocus();
}

void DateField::keyPressEvent(QKeyEvent* event) {
  if (asks_for_calendar(*event)) return open_calendar();
  const bool may_type = !isReadOnly();
  if (may_type && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
    if (settle()) step(event->key() == Qt::Key_Up ? 1 : -1);
    return;
  }
  if (event->key() == Qt::Key_Escape && is_edited_) return show_text();
  const bool is_first_key = may_type && starts_anew_ && is_printable(*event);
  if (is_first_key && event->text().compare("t", Qt::CaseInsensitive) == 0)
    return set_date(to_qt(today_()));
  if (is_first_key) selectAll();
  QLineEdit::keyPressEvent(event);
}

void DateField::mousePressEvent(QMouseEvent* event) {
  starts_anew_ = !is_edited_;
  QLineEdit::mousePressEvent(event);
}

// Who has marked a part wants to type over that part.
void DateField::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (hasSelectedText() && selectedText() != text()) starts_anew_ = false;
}

void DateField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::MouseFocusReason || event->reason() == Qt::PopupFocusReason) return;
  starts_anew_ = !is_edited_;
  selectAll();
}

}  // namespace tela
