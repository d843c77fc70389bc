// tela_reports: the program on the desktop.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTemporaryDir>
#include <filesystem>
#include <iostream>

#include "apps/program/program.h"
#include "apps/tela_reports/chart_tour.h"
#include "apps/tela_reports/picture_tour.h"
#include "display/qt/look.h"
#include "platform/chart_qt/picture_clipboard.h"
#include "platform/report_qt/paged_output.h"

namespace {

constexpr const char* kCatalogue = "TelaData";

enum ExitCode { ended_well = 0, failed = 1, bad_usage = 2 };

bool has_desktop() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

// Whether the pictures are asked for: they need no desktop, and that is settled ahead of the
// application object.
bool wants_pictures(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    if (QByteArray(argv[i]).contains("pictures")) return true;
  return false;
}

std::string first_run_hint(const tela::Paths& paths) {
  if (std::filesystem::exists(paths.server_catalogue(kCatalogue)) ||
      std::filesystem::exists(paths.embedded_catalogue(kCatalogue)))
    return {};
  const std::string command = "tela_catalogue --root " + paths.root().string();
  return "There is no catalogue yet. In a terminal,\n    " + command +
         " create\nmakes an empty one, and\n    " + command + " demo\none of an invented shop.";
}

tela::Paths platform_root(const QString& root) {
  return root.isEmpty() ? tela::Paths::from_environment() : tela::Paths(root.toStdString());
}

// The folders that pictures are asked for in; empty where they are not.
struct Pictures {
  QString of_guide;
  QString of_charts;
  bool wanted() const { return !of_guide.isEmpty() || !of_charts.isEmpty(); }
};

int run(const tela::Paths& paths, const Pictures& pictures) {
  // A tour for pictures shows the windows as they are at first, and leaves no trace.
  const QTemporaryDir passing;
  const QString settings_folder =
      pictures.wanted() ? passing.path() : QString::fromStdString(paths.root().string());
  tela::DesktopSettings settings(QDir(settings_folder).filePath("desktop.ini"));
  tela::QtDisplay display(settings, {[] { QCoreApplication::exit(ended_well); },
                                     [&paths] { return first_run_hint(paths); }});
  tela::Platform platform = tela::make_platform(paths);
  platform.write_pdf = tela::write_pdf;
  platform.chart_pictures = tela::make_chart_pictures();
  tela::Program program(std::move(platform), display);
  display.start(program.state());
  if (!pictures.wanted()) return QApplication::exec();
  if (!pictures.of_guide.isEmpty())
    tela::PictureTour(display, program.state(), QDir(pictures.of_guide)).run();
  else
    tela::ChartTour(display, program.state(), QDir(pictures.of_charts)).run();
  return ended_well;
}

}  // namespace

int main(int argc, char** argv) {
  if (!has_desktop()) {
    if (!wants_pictures(argc, argv)) {
      std::cerr << "tela_reports: there is no desktop here; tela_console runs the same reports\n";
      return bad_usage;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  QApplication application(argc, argv);
  QCoreApplication::setApplicationName("tela_reports");
  QCoreApplication::setApplicationVersion(TELA_VERSION);
  QGuiApplication::setDesktopFileName("tela-reports");
  QApplication::setQuitOnLastWindowClosed(false);
  tela::adopt_look();

  QCommandLineParser parser;
  parser.setApplicationDescription("The back-office reports of a supermarket.");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addOption({"root", "The folder that stands for the shop's machine.", "DIR"});
  parser.addOption({"pictures", "Walk through the program and save pictures of it.", "DIR"});
  parser.addOption({"chart-pictures", "Save a picture of every chart in every type.", "DIR"});
  parser.process(application);
  if (!parser.positionalArguments().isEmpty()) {
    std::cerr << "tela_reports: what is \"" << parser.positionalArguments().first().toStdString()
              << "\"? See tela_reports --help\n";
    return bad_usage;
  }
  try {
    return run(platform_root(parser.value("root")),
               {parser.value("pictures"), parser.value("chart-pictures")});
  } catch (const std::exception& failure) {
    std::cerr << "tela_reports: " << failure.what() << '\n';
    return failed;
  }
}
