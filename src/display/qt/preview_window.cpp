#include "display/qt/preview_window.h"

#include <QCloseEvent>

#include "platform/report_qt/report_viewer.h"

namespace tela {

PreviewWindow::PreviewWindow(std::function<void()> closed)
    : closed_(std::move(closed)), viewer_(new ReportViewer) {
  setObjectName("form1");
  setWindowTitle(ReportWindow::kCaption);
  setCentralWidget(viewer_);
  resize(1000, 700);
}

void PreviewWindow::show_report(const ReportWindow& preview) {
  viewer_->set_report(preview.document);
  viewer_->zoom_to(ReportWindow::kZoom);
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  closed_();
}

}  // namespace tela
