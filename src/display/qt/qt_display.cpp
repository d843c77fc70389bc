#include "display/qt/qt_display.h"

#include <QApplication>
#include <QFileDialog>
#include <QMdiArea>

#include <QMessageBox>
#include <QStatusBar>

#include "display/qt/child_frame.h"
#include "display/qt/login_window.h"
#include "display/qt/look.h"
#include "display/qt/main_frame.h"
#include "display/qt/preview_window.h"
#include "platform/report/noted_document.h"
#include "shell/main_window.h"
#include "shell/owner_login.h"
#include "shell/report_window.h"
#include "shell/windows.h"

namespace tela {

namespace {

// A report screen opens this far from the corner of the frame: 100 twips.
constexpr QPoint kChildCorner(7, 7);
// Further windows stand so far from the one before, and begin again after some.
constexpr QPoint kCascadeStep(28, 28);
constexpr int kCascade = 8;

QString text(const std::string& words) {
  return QString::fromStdString(words);
}

QMessageBox::Icon box_icon(Icon icon) {
  switch (icon) {
    case Icon::critical:
      return QMessageBox::Critical;
    case Icon::information:
      return QMessageBox::Information;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

// The ordinary pointer while the user is asked something in the middle of an event.
class PointerPause {
 public:
  PointerPause() {
    while (const QCursor* cursor = QApplication::overrideCursor()) {
      shapes_.push_back(*cursor);
      QApplication::restoreOverrideCursor();
    }
  }
  ~PointerPause() {
    for (auto shape = shapes_.rbegin(); shape != shapes_.rend(); ++shape)
      QApplication::setOverrideCursor(*shape);
  }
  PointerPause(const PointerPause&) = delete;
  PointerPause& operator=(const PointerPause&) = delete;

 private:
  std::vector<QCursor> shapes_;
};

}  // namespace

QtDisplay::QtDisplay(DesktopSettings& settings, DesktopHooks hooks)
    : settings_(settings), hooks_(std::move(hooks)), events_([this] { end_event(); }) {
  set_text_size(settings_.text_percent());
}

// The screens may be gone by now, while Qt still asks the windows that go for their headings.
QtDisplay::~QtDisplay() {
  for (const auto& [name, child] : children_) child->view().detach();
  if (login_) login_->view().detach();
}

void QtDisplay::start(AppState& app) {
  app_ = &app;
  open_login(*app.windows.login());
}

Answer QtDisplay::message(const Message& message) {
  mirror();
  const PointerPause pause;
  QWidget* owner = QApplication::activeWindow();
  QMessageBox box(owner);
  box.setTextFormat(Qt::PlainText);
  box.setIcon(box_icon(message.icon));
  // A desktop would put the program's name where there is no title at all.
  box.setWindowTitle(message.title.empty() ? " " : text(message.title));
  box.setText(text(message.text));
  box.setInformativeText(text(message.reason));
  const bool asks = message.buttons == Buttons::ok_cancel;
  box.setStandardButtons(asks ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok);
  box.setDefaultButton(QMessageBox::Ok);
  const bool ok = box.exec() == QMessageBox::Ok;
  if (owner) owner->activateWindow();
  return ok || !asks ? Answer::ok : Answer::cancel;
}

void QtDisplay::focus(const Screen& screen, const std::string& control) {
  if (ScreenView* view = view_of(screen)) view->focus_control(control);
}

void QtDisplay::pointer(Pointer shape) {
  if (shape == Pointer::busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void QtDisplay::hint(const std::string& words) {
  constexpr int kShownFor = 15000;  // milliseconds
  if (main_) main_->statusBar()->showMessage(text(words), kShownFor);
}

// The words are painted at once, since the window is busy until the action's end; what the user
// types and clicks meanwhile waits for that.
void QtDisplay::progress(const std::string& work, int done, int total) {
  constexpr int kPause = 200;  // milliseconds
  if (!main_ || total <= 0 || (last_progress_.isValid() && last_progress_.elapsed() < kPause))
    return;
  last_progress_.start();
  main_->statusBar()->showMessage(
      QStringLiteral("%1: %2 %").arg(text(work)).arg(100LL * done / total), 5 * kPause);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool QtDisplay::keep_going(std::int64_t rows) {
  if (!main_ || !events_.running()) return true;
  return work_.keep_going(events_.elapsed(), rows, *main_->statusBar());
}

void QtDisplay::end_event() {
  if (main_) work_.end(*main_->statusBar());
  mirror();
}

void QtDisplay::opened(Screen& screen) {
  if (auto* main = dynamic_cast<MainWindow*>(&screen)) return open_main(*main);
  open_child(screen);
}

void QtDisplay::open_login(OwnerLogin& login) {
  login_ = std::make_unique<LoginWindow>(login, events_, settings_);
  mirror();
  login_->show();
  login_->view().focus_first();
}

void QtDisplay::open_main(MainWindow& main) {
  main_ = std::make_unique<MainFrame>(main, events_, settings_, [this] { exit_program(); });
  QObject::connect(&main_->area(), &QMdiArea::subWindowActivated, main_.get(),
                   [this](QMdiSubWindow* window) { activated(window); });
  main_->showMaximized();
}

void QtDisplay::open_child(Screen& screen) {
  QMdiArea& area = main_->area();
  auto* view = new ScreenView(screen, events_, settings_);
  auto* child = new ChildFrame(view, [this, name = screen.name()] { close_child(name); });
  QObject::connect(view, &ScreenView::hint, child,
                   [this](const QString& words) { hint(words.toStdString()); });
  children_[screen.name()] = child;
  area.addSubWindow(child);
  const QByteArray place = settings_.place(text(screen.name()));
  if (place.isEmpty() || !child->restoreGeometry(place)) {
    child->resize(child->sizeHint().boundedTo(area.viewport()->size() -
                                              QSize(2 * kChildCorner.x(), 2 * kChildCorner.y())));
    child->move(kChildCorner + (static_cast<int>(children_.size()) - 1) % kCascade * kCascadeStep);
  }
  child->show();
  view->focus_first();
}

ScreenView* QtDisplay::view_of(const Screen& screen) const {
  if (login_ && login_->view().screen() == &screen) return &login_->view();
  const auto child = children_.find(screen.name());
  return child == children_.end() ? nullptr : &child->second->view();
}

void QtDisplay::front(Screen& screen) {
  ChildFrame* child = children_.at(screen.name());
  if (child->isMinimized()) child->showNormal();
  main_->area().setActiveSubWindow(child);
}

void QtDisplay::closed(Screen& screen) {
  ScreenView* view = view_of(screen);
  if (!view) return;
  view->detach();
  if (login_ && view == &login_->view()) {
    login_->hide();
    login_.release()->deleteLater();
    return;
  }
  ChildFrame* child = children_.at(screen.name());
  settings_.set_place(text(screen.name()), child->saveGeometry());
  children_.erase(screen.name());
  main_->area().removeSubWindow(child);
  child->hide();
  child->deleteLater();
  if (const Screen* next = app_->windows.current())
    main_->area().setActiveSubWindow(children_.at(next->name()));
}

void QtDisplay::close_child(const std::string& screen) {
  events_.run([&] { app_->windows.close(*app_, screen); });
  app_->windows.destroy_closed();
}

void QtDisplay::activated(QMdiSubWindow* window) {
  if (!window || events_.running()) return;
  const std::string screen = window->objectName().toStdString();
  if (app_->windows.current() == app_->windows.find(screen)) return;
  events_.run_quietly([&] { app_->windows.open(*app_, screen); });
}

namespace {

// What the totals of the list lack, its report lacks as well.
ReportWindow with_note(ReportWindow preview, const Screen& screen) {
  std::string note;
  for (const Control& control : screen.form().controls())
    if (control.grid && note.empty()) note = control.grid->Note();
  if (preview.document && !note.empty())
    preview.document = std::make_shared<NotedDocument>(preview.document, note);
  return preview;
}

}  // namespace

void QtDisplay::preview_opened(const ReportWindow& preview) {
  preview_ =
      std::make_unique<PreviewWindow>(settings_, [this] { app_->windows.close_preview(*app_); });
  const Screen* screen = app_->windows.current();
  const QString name = screen ? text(screen->caption()).trimmed() : QString();
  preview_->show_report(screen ? with_note(preview, *screen) : preview, name);
  preview_->showMaximized();
}

void QtDisplay::preview_closed() {
  if (!preview_) return;
  preview_->hide();
  preview_.release()->deleteLater();
}

std::optional<std::string> QtDisplay::save_file(const SaveRequest& request) {
  mirror();
  const PointerPause pause;
  const QString filter = text(request.filter);
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // "words (*.bmp)|*.bmp" names the pattern in brackets already, as this dialog wants it.
  dialog.setNameFilter(filter.section('|', 0, 0));
  dialog.setDefaultSuffix(text(request.default_extension));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

void QtDisplay::exit_program() {
  for (const auto& [name, child] : children_)
    settings_.set_place(text(name), child->saveGeometry());
  for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
  hooks_.exit();
}

void QtDisplay::mirror() {
  if (login_) {
    const std::string first_run = hooks_.first_run_hint();
    const std::string& hint = first_run.empty() ? app_->connection_failure : first_run;
    login_->view().mirror();
    login_->set_hint(text(hint));
  }
  if (main_) main_->mirror();
  for (const auto& [name, child] : children_) child->view().mirror();
}

}  // namespace tela
