#include "display/qt/long_work.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QStatusBar>

namespace tela {

namespace {

constexpr std::int64_t kPatience = 400;  // milliseconds that an action takes without a word
constexpr std::int64_t kPause = 100;     // milliseconds between two looks at the windows

bool is_escape(const QEvent& event) {
  return event.type() == QEvent::KeyPress &&
         static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

bool is_input(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool LongWork::keep_going(std::int64_t elapsed, std::int64_t rows, QStatusBar& line) {
  if (elapsed < kPatience || (last_look_.isValid() && last_look_.elapsed() < kPause)) return true;
  QString words = tr("Reading for %1 s").arg(elapsed / 1000);
  if (rows > 0) words += tr(", %1 rows").arg(rows);
  shown_ = words + tr(".   Esc cancels.");
  line.showMessage(shown_);
  QCoreApplication::instance()->installEventFilter(this);
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(this);
  last_look_.start();
  return !is_cancelled_;
}

void LongWork::end(QStatusBar& line) {
  if (line.currentMessage() == shown_) line.clearMessage();
  shown_.clear();
  is_cancelled_ = false;
  last_look_.invalidate();
  for (auto& [receiver, event] : std::exchange(waiting_, {}))
    if (receiver) QCoreApplication::postEvent(receiver, event.release());
}

bool LongWork::eventFilter(QObject* watched, QEvent* event) {
  // A shortcut would start an action in the middle of this one; as a key it waits.
  if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::Shortcut) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::Close) {
    event->ignore();
    return true;
  }
  if (is_escape(*event)) {
    is_cancelled_ = true;
    return true;
  }
  if (!is_input(event->type())) return false;
  waiting_.emplace_back(watched, event->clone());
  return true;
}

}  // namespace tela
