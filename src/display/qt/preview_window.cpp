#include "display/qt/preview_window.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "platform/report_qt/report_viewer.h"

namespace tela {

PreviewWindow::PreviewWindow(DesktopSettings& settings, std::function<void()> closed)
    : settings_(settings), closed_(std::move(closed)), viewer_(new ReportViewer) {
  setObjectName("form1");
  setWindowTitle(ReportWindow::kCaption);
  setCentralWidget(viewer_);
  resize(1000, 700);
  viewer_->set_save_folder(settings_.save_folder());
  connect(viewer_, &ReportViewer::saved_in, this,
          [this](const QString& folder) { settings_.set_save_folder(folder); });
}

void PreviewWindow::show_report(const ReportWindow& preview, const QString& name) {
  if (!name.isEmpty()) setWindowTitle(name + " – " + ReportWindow::kCaption);
  viewer_->set_save_name(name);
  viewer_->set_report(preview.document);
  viewer_->zoom_to(ReportWindow::kZoom);
}

void PreviewWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return closed_();
  QMainWindow::keyPressEvent(event);
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  closed_();
}

}  // namespace tela
