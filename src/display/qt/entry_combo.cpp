#include "display/qt/entry_combo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QToolTip>

#include "display/qt/look.h"

namespace tela {

EntryCombo::EntryCombo(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  completer()->setFilterMode(Qt::MatchContains);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  completer()->popup()->installEventFilter(this);
  // QComboBox writes an entry over a text that differs from it in case alone.
  disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
  connect(this, &QComboBox::textActivated, this, [this] {
    is_typed_ = false;
    mark(false);
  });
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    is_typed_ = true;
    mark(count() > 0 && !text.trimmed().isEmpty() && matches().isEmpty());
  });
}

void EntryCombo::show_entries(const std::vector<std::string>& entries) {
  bool same = count() == static_cast<int>(entries.size());
  for (int i = 0; same && i < count(); ++i)
    same = itemText(i) == QString::fromStdString(entries[static_cast<std::size_t>(i)]);
  if (same) return;
  clear();
  for (const std::string& entry : entries) addItem(QString::fromStdString(entry));
}

void EntryCombo::show_text(const QString& text) {
  if (currentText() == text) return;
  is_typed_ = false;
  mark(false);
  setCurrentIndex(findText(text));
  setEditText(text);
}

QStringList EntryCombo::matches() const {
  QStringList found;
  const QString typed = currentText().trimmed();
  for (int i = 0; i < count(); ++i)
    if (itemText(i).contains(typed, Qt::CaseInsensitive)) found.append(itemText(i));
  return found;
}

bool EntryCombo::is_entry() const {
  for (int i = 0; i < count(); ++i)
    if (itemText(i).trimmed().compare(currentText().trimmed(), Qt::CaseInsensitive) == 0)
      return true;
  return false;
}

void EntryCombo::take_only_match() {
  if (!is_typed_ || currentText().trimmed().isEmpty() || is_entry()) return;
  const QStringList found = matches();
  if (found.size() != 1) return;
  {
    const QSignalBlocker quiet(this);
    setCurrentIndex(findText(found.first()));
    setEditText(found.first());
  }
  emit textActivated(found.first());
}

void EntryCombo::mark(bool wrong) {
  mark_field(*lineEdit(), wrong);
}

void EntryCombo::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
    return;
  if (!is_typed_ || count() == 0 || currentText().trimmed().isEmpty() || is_entry()) return;
  mark(true);
  emit unmatched(tr("“%1” is no entry of the list.").arg(currentText()));
}

bool EntryCombo::eventFilter(QObject* watched, QEvent* event) {
  if (watched != completer()->popup()) return QComboBox::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) return popup_key(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::MouseButtonPress)
    return popup_press(*static_cast<QMouseEvent*>(event));
  return false;
}

// Enter acts at once, unless one of the offered entries was walked to.
bool EntryCombo::popup_key(const QKeyEvent& event) {
  QAbstractItemView& popup = *completer()->popup();
  const bool is_enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  if (!is_enter || popup.currentIndex().isValid()) return false;
  popup.hide();
  QKeyEvent enter(QEvent::KeyPress, event.key(), event.modifiers(), event.text());
  QApplication::sendEvent(this, &enter);
  return true;
}

// A click beside the offered entries closes them and reaches what it was meant for. The window
// system gives its release to the closed list, so both halves are sent.
bool EntryCombo::popup_press(const QMouseEvent& event) {
  QAbstractItemView& popup = *completer()->popup();
  if (popup.rect().contains(event.position().toPoint())) return false;
  popup.hide();
  QWidget* target = QApplication::widgetAt(event.globalPosition().toPoint());
  if (!target) return true;
  const auto click = [target, place = event.globalPosition(), button = event.button()] {
    const QPointF within = target->mapFromGlobal(place);
    QMouseEvent press(QEvent::MouseButtonPress, within, place, button, button, {});
    QMouseEvent release(QEvent::MouseButtonRelease, within, place, button, {}, {});
    QApplication::sendEvent(target, &press);
    QApplication::sendEvent(target, &release);
  };
  QMetaObject::invokeMethod(target, click, Qt::QueuedConnection);
  return true;
}

}  // namespace tela
