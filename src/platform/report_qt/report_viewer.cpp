// The viewer's buttons, keys and what they do.
#include "platform/report_qt/report_viewer.h"

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "platform/report_qt/page_canvas.h"
#include "platform/report_qt/paged_output.h"

namespace tela {
namespace {

constexpr std::array zoom_steps{25, 50, 75, 90, 100, 125, 150, 200, 300, 400};
constexpr int fit_entry = 0;  // data of the zoom list's entry that fits the width

QString percent_text(int percent) {
  return QString::number(percent) + " %";
}

void write_csv_file(const ReportDocument& document, const QString& path) {
  std::ostringstream text;
  document.write_csv(text);
  QSaveFile file(path);
  const std::string bytes = text.str();
  const bool written = file.open(QIODevice::WriteOnly) &&
                       file.write(bytes.data(), static_cast<qint64>(bytes.size())) >= 0 &&
                       file.commit();
  if (!written) {
    throw ReportError("cannot write " + path.toStdString() + ": " +
                      file.errorString().toStdString());
  }
}

/// Runs an output; a failure is told in a box of the viewer's own.
template <typename Output>
void run_output(QWidget* viewer, const Output& output) {
  try {
    output();
  } catch (const ReportError& failure) {
    QMessageBox::critical(viewer, viewer->window()->windowTitle(),
                          QString::fromUtf8(failure.what()));
  }
}

}  // namespace

ReportViewer::ReportViewer(QWidget* parent)
    : QWidget(parent),
      bar_(new QToolBar(this)),
      scroll_(new QScrollArea(this)),
      canvas_(new PageCanvas) {
  setWindowTitle("Report");
  scroll_->setWidget(canvas_);
  scroll_->setAlignment(Qt::AlignCenter);
  scroll_->setBackgroundRole(QPalette::Mid);
  scroll_->setFrameShape(QFrame::NoFrame);
  add_paging();
  bar_->addSeparator();
  add_zoom();
  bar_->addSeparator();
  add_search();
  bar_->addSeparator();
  add_outputs();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(bar_);
  layout->addWidget(scroll_);
  set_report(nullptr);
}

QAction* ReportViewer::add_key(const QKeySequence& key, const std::function<void()>& run) {
  auto* action = new QAction(this);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, run);
  addAction(action);
  return action;
}

QAction* ReportViewer::add_action(const QString& text, const QKeySequence& key,
                                  const std::function<void()>& run) {
  QAction* action = add_key(key, run);
  action->setText(text);
  action->setToolTip(text + "  " + key.toString(QKeySequence::NativeText));
  bar_->addAction(action);
  return action;
}

void ReportViewer::add_paging() {
  const auto picture = [this](QStyle::StandardPixmap name) { return style()->standardIcon(name); };
  first_ = add_action("First page", Qt::Key_Home, [this] { show_page(1); });
  first_->setIcon(picture(QStyle::SP_MediaSkipBackward));
  previous_ =
      add_action("Previous page", Qt::CTRL | Qt::Key_PageUp, [this] { show_page(page_ - 1); });
  previous_->setIcon(picture(QStyle::SP_MediaSeekBackward));
  page_box_ = new QSpinBox;
  page_box_->setAccessibleName("Page");
  page_box_->setKeyboardTracking(false);
  page_box_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  page_box_->setAlignment(Qt::AlignRight);
  connect(page_box_, &QSpinBox::valueChanged, this, &ReportViewer::show_page);
  bar_->addWidget(page_box_);
  page_count_ = new QLabel;
  bar_->addWidget(page_count_);
  next_ = add_action("Next page", Qt::CTRL | Qt::Key_PageDown, [this] { show_page(page_ + 1); });
  next_->setIcon(picture(QStyle::SP_MediaSeekForward));
  last_ = add_action("Last page", Qt::Key_End, [this] { show_page(document_->page_count()); });
  add_key(Qt::Key_PageDown, [this] { show_part(1); });
  add_key(Qt::Key_PageUp, [this] { show_part(-1); });
  last_->setIcon(picture(QStyle::SP_MediaSkipForward));
}

void ReportViewer::add_zoom() {
  add_action("Smaller", QKeySequence::ZoomOut, [this] { step_zoom(-1); })->setIconText("\u2212");
  zoom_box_ = new QComboBox;
  zoom_box_->setAccessibleName("Zoom");
  zoom_box_->addItem("Fit width", fit_entry);
  for (const int percent : zoom_steps) zoom_box_->addItem(percent_text(percent), percent);
  connect(zoom_box_, &QComboBox::activated, this, [this](int index) {
    const int chosen = zoom_box_->itemData(index).toInt();
    chosen == fit_entry ? fit_width() : zoom_to(chosen);
  });
  bar_->addWidget(zoom_box_);
  add_action("Larger", QKeySequence::ZoomIn, [this] { step_zoom(1); })->setIconText("+");
}

void ReportViewer::add_search() {
  search_box_ = new QLineEdit;
  search_box_->setPlaceholderText("Find");
  search_box_->setAccessibleName("Find");
  search_box_->setClearButtonEnabled(true);
  search_box_->setMaximumWidth(220);
  const auto search = [this] {
    const bool found = find(search_box_->text());
    search_result_->setText(found || search_box_->text().isEmpty() ? "" : "  Not found");
  };
  connect(search_box_, &QLineEdit::returnPressed, this, search);
  bar_->addWidget(search_box_);
  add_action("Find next", QKeySequence::FindNext, search);
  search_result_ = new QLabel;
  bar_->addWidget(search_result_);
  add_key(QKeySequence::Find, [this] { search_box_->setFocus(); });
}

void ReportViewer::add_outputs() {
  add_action("Print\u2026", QKeySequence::Print, [this] { print(); });
  add_action("PDF\u2026", QKeySequence::Save, [this] {
    save("pdf", "PDF files (*.pdf)",
         [this](const QString& path) { write_pdf(*document_, path.toStdString()); });
  });
  add_action("CSV\u2026", Qt::CTRL | Qt::Key_E, [this] {
    save("csv", "CSV files (*.csv)",
         [this](const QString& path) { write_csv_file(*document_, path); });
  });
}

void ReportViewer::set_report(std::shared_ptr<const ReportDocument> document) {
  document_ = std::move(document);
  hit_.reset();
  page_ = 0;
  bar_->setEnabled(document_ != nullptr);
  for (QAction* action : actions()) action->setEnabled(document_ != nullptr);
  const int pages = document_ ? document_->page_count() : 0;
  page_count_->setText(document_ ? QString(" of %1 ").arg(pages) : QString());
  const QSignalBlocker quiet(page_box_);
  page_box_->setRange(std::min(pages, 1), pages);
  canvas_->show_page(nullptr, 0);
  zoom_to(zoom_);
  show_page(1);
}

void ReportViewer::zoom_to(int percent) {
  fits_width_ = false;
  apply_zoom(percent);
  const int entry = zoom_box_->findData(zoom_);
  zoom_box_->setCurrentIndex(entry);
  zoom_box_->setPlaceholderText(percent_text(zoom_));
}

void ReportViewer::fit_width() {
  fits_width_ = true;
  zoom_box_->setCurrentIndex(zoom_box_->findData(fit_entry));
  if (!document_) return;
  const double room = scroll_->width() - scroll_->verticalScrollBar()->sizeHint().width();
  apply_zoom(static_cast<int>(room * 100 / canvas_->natural_width()));
}

void ReportViewer::apply_zoom(int percent) {
  zoom_ = std::clamp(percent, zoom_steps.front(), zoom_steps.back());
  canvas_->set_zoom(zoom_);
}

void ReportViewer::step_zoom(int direction) {
  const auto larger = std::upper_bound(zoom_steps.begin(), zoom_steps.end(), zoom_);
  const auto smaller = std::lower_bound(zoom_steps.begin(), zoom_steps.end(), zoom_);
  if (direction > 0 && larger != zoom_steps.end()) zoom_to(*larger);
  if (direction < 0 && smaller != zoom_steps.begin()) zoom_to(*(smaller - 1));
}

void ReportViewer::show_page(int number) {
  if (!document_) return;
  page_ = std::clamp(number, 1, document_->page_count());
  canvas_->show_page(document_, page_);
  canvas_->mark(wanted_, hit_ && hit_->page == page_ ? std::optional(hit_->text) : std::nullopt);
  scroll_->verticalScrollBar()->setValue(0);
  const QSignalBlocker quiet(page_box_);
  page_box_->setValue(page_);
  first_->setEnabled(page_ > 1);
  previous_->setEnabled(page_ > 1);
  next_->setEnabled(page_ < document_->page_count());
  last_->setEnabled(page_ < document_->page_count());
}

void ReportViewer::show_part(int direction) {
  QScrollBar& bar = *scroll_->verticalScrollBar();
  const bool has_more = direction > 0 ? bar.value() < bar.maximum() : bar.value() > bar.minimum();
  if (has_more) return bar.setValue(bar.value() + direction * bar.pageStep());
  const int before = page_;
  show_page(page_ + direction);
  if (direction < 0 && page_ != before) bar.setValue(bar.maximum());
}

bool ReportViewer::find(const QString& text) {
  if (!document_) return false;
  const std::string wanted = text.trimmed().toStdString();
  if (wanted != std::exchange(wanted_, wanted)) hit_.reset();
  hit_ = find_next(*document_, wanted_, hit_, page_);
  show_page(hit_ ? hit_->page : page_);
  if (!hit_) return false;
  const QRect place = canvas_->text_rect(hit_->text);
  scroll_->ensureVisible(place.center().x(), place.center().y(), place.width() / 2 + 20, 60);
  return true;
}

void ReportViewer::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (fits_width_) fit_width();
}

void ReportViewer::print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setFullPage(true);
  printer.setDocName(windowTitle());
  set_paper(printer, *document_);
  QPrintDialog dialog(&printer, this);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
  dialog.setMinMax(1, document_->page_count());
  if (dialog.exec() != QDialog::Accepted) return;
  const bool has_range = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  const bool one_page = printer.printRange() == QPrinter::CurrentPage;
  const int first = one_page ? page_ : has_range ? printer.fromPage() : 1;
  const int last = one_page ? page_ : has_range ? printer.toPage() : document_->page_count();
  run_output(this, [&] { paint_pages(printer, *document_, first, last); });
}

void ReportViewer::save(const QString& suffix, const QString& filter,
                        const std::function<void(const QString& path)>& write) {
  QFileDialog dialog(this, QString(), save_folder_, filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(suffix);
  if (!save_name_.isEmpty()) dialog.selectFile(save_name_ + '.' + suffix);
  if (dialog.exec() != QDialog::Accepted) return;
  save_folder_ = dialog.directory().absolutePath();
  emit saved_in(save_folder_);
  run_output(this, [&] { write(dialog.selectedFiles().constFirst()); });
}

}  // namespace tela
