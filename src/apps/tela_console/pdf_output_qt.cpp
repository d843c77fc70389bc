#include <QGuiApplication>
#include <memory>

#include "apps/tela_console/pdf_output.h"
#include "platform/report_qt/paged_output.h"

namespace tela {

namespace {

// Fonts and painting need an application object, whose arguments must live as long as it does.
class PdfPainter {
 public:
  void write(const ReportDocument& document, const std::string& path) {
    if (!application_) {
      qputenv("QT_QPA_PLATFORM", "offscreen");
      application_ = std::make_unique<QGuiApplication>(argument_count_, arguments_);
    }
    write_pdf(document, path);
  }

 private:
  int argument_count_ = 1;
  char name_[13] = "tela_console";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> application_;
};

}  // namespace

PdfWriter make_pdf_writer() {
  const auto painter = std::make_shared<PdfPainter>();
  return [painter](const ReportDocument& document, const std::string& path) {
    painter->write(document, path);
  };
}

}  // namespace tela
