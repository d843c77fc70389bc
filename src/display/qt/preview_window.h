// The preview window `form1`: the report viewer in a window of its own.
#pragma once

#include <QMainWindow>
#include <functional>

#include "display/qt/desktop_settings.h"
#include "shell/report_window.h"

namespace tela {

class ReportViewer;

class PreviewWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// `closed` is called when the user has closed the window.
  PreviewWindow(DesktopSettings& settings, std::function<void()> closed);

  /// Shows the report of that name, or an empty viewer.
  void show_report(const ReportWindow& preview, const QString& name);
  ReportViewer& viewer() { return *viewer_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  DesktopSettings& settings_;
  std::function<void()> closed_;
  ReportViewer* viewer_;
};

}  // namespace tela
