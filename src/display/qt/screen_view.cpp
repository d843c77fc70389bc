#include "display/qt/screen_view.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QShortcut>
#include <QTimer>
#include <algorithm>

#include "display/qt/date_field.h"
#include "display/qt/flow_layout.h"
#include "display/qt/grid_pane.h"
#include "display/qt/look.h"
#include "display/qt/period_buttons.h"
#include "platform/chart_qt/chart_view.h"

namespace tela {

namespace {

constexpr int kGap = 10;  // pixels between fields
constexpr int kLeastWidth = 560;
constexpr const char* kLeavingWords[] = {"close", "exit", "refresh", "cancel"};

bool fills_window(const Control& control) {
  return control.kind == ControlKind::grid || control.kind == ControlKind::list ||
         control.kind == ControlKind::chart;
}

bool is_button(ControlKind kind) {
  return kind == ControlKind::button || kind == ControlKind::picture_button;
}

// Whether the caption stands beside the widget and not on it.
bool has_caption_beside(const Control& control) {
  return !is_button(control.kind) && control.kind != ControlKind::check && !fills_window(control);
}

QLabel* caption_label(const Control& control, QWidget* input) {
  auto* caption = new QLabel(QString::fromStdString(control.caption).trimmed());
  caption->setBuddy(input);
  return caption;
}

// A button that leaves or clears the window works whatever stands in the dates.
bool needs_dates(const Control& button) {
  const std::string words = plain_words(button.caption);
  return std::none_of(std::begin(kLeavingWords), std::end(kLeavingWords),
                      [&](const char* word) { return words.find(word) != std::string::npos; });
}

// A field below its caption.
QWidget* captioned(const Control& control, QWidget* input) {
  auto* cell = new QWidget;
  auto* column = new QVBoxLayout(cell);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(caption_label(control, input));
  column->addWidget(input);
  return cell;
}

// A row of fields that goes on in the next line where it must; in a frame if it has a title.
QLayout* add_row(QVBoxLayout& column, const std::string& title) {
  auto* row = new FlowLayout(kGap);
  if (title.empty()) {
    column.addLayout(row);
    return row;
  }
  auto* frame = new QGroupBox(QString::fromStdString(title));
  frame->setLayout(row);
  column.addWidget(frame);
  return row;
}

bool is_enter(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

// The user moved on to another field, rather than to another window, a menu or a list that drops
// down.
bool moves_within_window(Qt::FocusReason reason) {
  return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

}  // namespace

ScreenView::ScreenView(Screen& screen, UserEvents& events, DesktopSettings& settings,
                       QWidget* parent)
    : QWidget(parent), screen_(&screen), events_(events), settings_(settings) {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kGap);
  const auto& controls = screen.form().controls();
  if (std::any_of(controls.begin(), controls.end(), fills_window))
    lay_out_report(*column);
  else
    lay_out_form(*column);
  set_tab_order();
  add_find_shortcut();
  mirror();
}

ScreenView::Cell ScreenView::make_cell(const Control& control, bool with_caption) {
  ScreenField field = make_field(control, actions(control.name), settings_,
                                 QString::fromStdString(screen_->name()));
  field.input->installEventFilter(this);
  QWidget* whole =
      with_caption && has_caption_beside(control) ? captioned(control, field.input) : field.input;
  return {std::move(field), whole};
}

FieldActions ScreenView::actions(const std::string& control) {
  FieldActions all;
  all.set = [this, control](const QString& text) {
    send_quietly([&](Screen& screen) { screen.set(control, text.toStdString()); });
  };
  all.pick = [this, control](const QString& entry) {
    send([&](Screen& screen) { screen.pick(control, entry.toStdString()); });
  };
  all.press = [this, control] {
    commit_focused();
    if (needs_dates(screen_->form().at(control)) && !dates_are_settled()) return;
    send([&](Screen& screen) { screen.press(control); });
  };
  all.double_click = [this, control](int row) {
    send([&](Screen& screen) { screen.double_click(control, row); });
  };
  all.hint = [this](const QString& words) {
    if (screen_) emit hint(words);
  };
  all.today = [this] { return screen_->today(); };
  return all;
}

void ScreenView::lay_out_report(QVBoxLayout& column) {
  QLayout* row = nullptr;
  std::string group;
  for (const Control& control : screen_->form().controls()) {
    cells_.push_back(make_cell(control, true));
    QWidget* whole = cells_.back().whole;
    if (fills_window(control)) {
      column.addWidget(whole, 1);
      row = nullptr;
      continue;
    }
    if (!row || control.group != group) row = add_row(column, control.group);
    group = control.group;
    row->addWidget(whole);
    if (QWidget* buttons = period_buttons_behind(control)) row->addWidget(buttons);
  }
}

std::vector<DateField*> ScreenView::date_fields() const {
  std::vector<DateField*> dates;
  for (const Cell& cell : cells_)
    if (cell.field.kind == ControlKind::date)
      dates.push_back(static_cast<DateField*>(cell.field.input));
  return dates;
}

// The buttons stand behind the second of two dates; null behind all other controls.
QWidget* ScreenView::period_buttons_behind(const Control& control) {
  if (control.kind != ControlKind::date) return nullptr;
  const std::vector<DateField*> dates = date_fields();
  if (dates.size() != 2) return nullptr;
  const auto today = [this] { return screen_->today(); };
  return new PeriodButtons(*dates[0], *dates[1], today, *this);
}

void ScreenView::lay_out_form(QVBoxLayout& column) {
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(2 * kGap);
  form->setVerticalSpacing(kGap);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  for (const Control& control : screen_->form().controls()) {
    cells_.push_back(make_cell(control, false));
    QWidget* input = cells_.back().whole;
    if (is_button(control.kind))
      buttons->addWidget(input);
    else if (has_caption_beside(control))
      form->addRow(caption_label(control, input), input);
    else
      form->addRow(input);
    if (QWidget* period = period_buttons_behind(control)) form->addRow(period);
  }
  column.addLayout(form);
  column.addLayout(buttons);
  column.addStretch(1);
}

void ScreenView::set_tab_order() {
  QWidget* last = nullptr;
  for (const Cell& cell : cells_) {
    if (cell.field.kind == ControlKind::label) continue;
    if (last) setTabOrder(last, cell.field.input);
    last = cell.field.input;
  }
}

void ScreenView::add_find_shortcut() {
  const auto grid = std::find_if(cells_.begin(), cells_.end(), [](const Cell& cell) {
    return cell.field.kind == ControlKind::grid;
  });
  if (grid == cells_.end()) return;
  auto* shortcut = new QShortcut(QKeySequence::Find, this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  connect(shortcut, &QShortcut::activated, this, [this] {
    GridPane* first = findChild<GridPane*>();
    for (GridPane* pane : findChildren<GridPane*>())
      if (pane->isAncestorOf(QApplication::focusWidget())) first = pane;
    first->open_find();
  });
}

void ScreenView::mirror() {
  if (!screen_) return;
  const auto& controls = screen_->form().controls();
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const Cell& cell = cells_[i];
    cell.field.mirror(controls[i]);
    cell.field.input->setEnabled(controls[i].enabled);
    cell.whole->setVisible(controls[i].visible);
  }
  mark_reversed_dates();
}

void ScreenView::mark_reversed_dates() {
  const std::vector<DateField*> dates = date_fields();
  if (dates.size() == 2) dates[1]->mark_reversed(dates[1]->date() < dates[0]->date());
}

void ScreenView::focus_control(std::string_view control) {
  mirror();  // a field that was switched on a moment ago takes the focus
  for (const Cell& cell : cells_)
    if (cell.field.name == control) cell.field.input->setFocus(Qt::OtherFocusReason);
}

void ScreenView::focus_first() {
  for (const Cell& cell : cells_) {
    QWidget& input = *cell.field.input;
    if (input.focusPolicy() == Qt::NoFocus || !input.isEnabled() || input.isHidden()) continue;
    return input.setFocus(Qt::OtherFocusReason);
  }
}

void ScreenView::detach() {
  screen_ = nullptr;
  for (GridPane* pane : findChildren<GridPane*>()) pane->view().set_grid(nullptr);
  for (ChartView* chart : findChildren<ChartView*>()) chart->set_chart(nullptr);
}

QSize ScreenView::sizeHint() const {
  const QList<GridPane*> panes = findChildren<GridPane*>();
  if (panes.isEmpty()) return QWidget::sizeHint();
  int width = kLeastWidth;
  for (const GridPane* pane : panes) width = std::max(width, pane->sizeHint().width());
  const QMargins margins = layout()->contentsMargins();
  width += margins.left() + margins.right();
  return {width, layout()->totalHeightForWidth(width)};
}

void ScreenView::send(const std::function<void(Screen&)>& event) {
  if (screen_) events_.run([&] { event(*screen_); });
}

void ScreenView::send_quietly(const std::function<void(Screen&)>& event) {
  if (screen_) events_.run_quietly([&] { event(*screen_); });
}

void ScreenView::commit(const ScreenField& field) {
  if (!screen_ || !field.held) return;
  const QString held = field.held();
  const Control& control = screen_->form().at(field.name);
  if (control.locked || held == shown_text(control)) return;
  send_quietly([&](Screen& screen) { screen.set(field.name, held.toStdString()); });
}

void ScreenView::commit_focused() {
  for (const Cell& cell : cells_)
    if (cell.field.input->hasFocus()) commit(cell.field);
}

bool ScreenView::dates_are_settled() {
  for (const Cell& cell : cells_) {
    if (cell.field.kind != ControlKind::date || cell.whole->isHidden()) continue;
    if (cell.field.settle()) continue;
    cell.field.input->setFocus(Qt::OtherFocusReason);
    return false;
  }
  return true;
}

bool ScreenView::eventFilter(QObject* watched, QEvent* event) {
  const auto cell = std::find_if(cells_.begin(), cells_.end(), [&](const Cell& candidate) {
    return candidate.field.input == watched;
  });
  if (cell == cells_.end() || !screen_) return false;
  const ScreenField& field = cell->field;
  switch (event->type()) {
    case QEvent::KeyPress:
      return key_pressed(field, static_cast<QKeyEvent*>(event)->key());
    case QEvent::FocusIn:
      focus_gained(field, static_cast<QFocusEvent*>(event)->reason());
      return false;
    case QEvent::FocusOut:
      if (moves_within_window(static_cast<QFocusEvent*>(event)->reason())) focus_lost(field);
      return false;
    case QEvent::Wheel:
      // The wheel scrolls the window; a value that it passes over must not change unnoticed.
      return field.kind == ControlKind::combo || field.kind == ControlKind::date;
    default:
      return false;
  }
}

bool ScreenView::key_pressed(const ScreenField& field, int key) {
  if (is_button(field.kind) || fills_window(screen_->form().at(field.name))) return false;
  if (!is_enter(key) && key != Qt::Key_Up) return false;
  if (is_enter(key)) {
    if (field.settle) field.settle();
    if (!dates_are_settled()) return true;
  }
  commit(field);
  const Key pressed = is_enter(key) ? Key::enter : Key::up;
  if (is_enter(key) && !screen_->acts_on(field.name, pressed)) {
    move_on(field);
    return true;
  }
  const QWidget* before = QApplication::focusWidget();
  send([&](Screen& screen) { screen.key(field.name, pressed); });
  // Up goes on to its ordinary meaning in a list or a date, unless the screen made use of it.
  return is_enter(key) || before != QApplication::focusWidget();
}

void ScreenView::move_on(const ScreenField& field) {
  auto cell = std::find_if(cells_.begin(), cells_.end(), [&](const Cell& candidate) {
    return candidate.field.name == field.name;
  });
  for (++cell; cell != cells_.end(); ++cell) {
    const Control& control = screen_->form().at(cell->field.name);
    QWidget& input = *cell->field.input;
    if (input.focusPolicy() == Qt::NoFocus || !input.isEnabled() || input.isHidden() ||
        control.locked)
      continue;
    input.setFocus(Qt::OtherFocusReason);
    if (is_button(control.kind) && plain_words(control.caption).starts_with("view"))
      actions(control.name).press();
    return;
  }
}

void ScreenView::focus_gained(const ScreenField& field, Qt::FocusReason reason) {
  auto* box = qobject_cast<QLineEdit*>(field.input);
  if (!box || !moves_within_window(reason) || !screen_->form().at(field.name).select_on_focus)
    return;
  // A click sets the cursor after the focus; the selection comes after both.
  if (reason == Qt::MouseFocusReason)
    QTimer::singleShot(0, box, &QLineEdit::selectAll);
  else
    box->selectAll();
}

void ScreenView::focus_lost(const ScreenField& field) {
  commit(field);
  // Where the screen itself moved the focus, its event ends before the next one begins.
  events_.run_afterwards([view = QPointer(this), name = field.name] {
    if (view && view->screen_) view->screen_->leave(name);
  });
}

}  // namespace tela
