// The preview window `form1`: the report viewer in a window of its own.
#pragma once

#include <QMainWindow>
#include <functional>

#include "shell/report_window.h"

namespace tela {

class ReportViewer;

class PreviewWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// `closed` is called when the user has closed the window.
  explicit PreviewWindow(std::function<void()> closed);

  /// Shows the report, or an empty viewer.
  void show_report(const ReportWindow& preview);
  ReportViewer& viewer() { return *viewer_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::function<void()> closed_;
  ReportViewer* viewer_;
};

}  // namespace tela
