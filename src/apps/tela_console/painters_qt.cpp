#include <QApplication>
#include <memory>
#include <string>

#include "apps/tela_console/painters.h"
#include "platform/chart_qt/picture_clipboard.h"
#include "platform/report_qt/paged_output.h"

namespace tela {

namespace {

// Fonts, painting and the clipboard need an application object, whose arguments must live as long
// as it does.
class PaintingApplication {
 public:
  void start() {
    if (application_) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(argument_count_, arguments_);
  }

 private:
  int argument_count_ = 1;
  char name_[13] = "tela_console";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

}  // namespace

void add_painters(Platform& platform) {
  const auto application = std::make_shared<PaintingApplication>();
  platform.write_pdf = [application](const ReportDocument& document, const std::string& path) {
    application->start();
    write_pdf(document, path);
  };
  const ChartPictures pictures = make_chart_pictures();
  platform.chart_pictures.copy = [application, pictures](const Chart& chart) {
    application->start();
    pictures.copy(chart);
  };
  platform.chart_pictures.save_copied = [application, pictures](const std::string& path) {
    application->start();
    pictures.save_copied(path);
  };
}

}  // namespace tela
