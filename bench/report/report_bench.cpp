// How long 10,000 staged rows take to their first page on the screen and to a PDF file, beside an
// office suite that prints the same table from a CSV file.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>

#include "platform/report_qt/paged_output.h"
#include "platform/report_qt/report_viewer.h"
#include "report/shipped_report.h"

namespace tela {
namespace {

std::unique_ptr<Report> open_sales(FakeCatalogue& catalogue) {
  constexpr int records = 10000;
  return open_shipped("SalesReport.rpt", catalogue, records);
}

void first_page(benchmark::State& state) {
  FakeCatalogue catalogue;
  const auto report = open_sales(catalogue);
  for (auto _ : state) {
    ReportViewer viewer;
    viewer.resize(1280, 900);
    viewer.set_report(report->run());
    benchmark::DoNotOptimize(viewer.grab());
  }
}

void pdf(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("sales.pdf").toStdString();
  FakeCatalogue catalogue;
  const auto report = open_sales(catalogue);
  for (auto _ : state) write_pdf(*report->run(), path);
}

void office_pdf(benchmark::State& state) {
  const QString office = QStandardPaths::findExecutable("soffice");
  if (office.isEmpty()) {
    state.SkipWithError("no office suite is installed");
    return;
  }
  const QTemporaryDir folder;
  FakeCatalogue catalogue;
  std::ofstream csv(folder.filePath("sales.csv").toStdString());
  open_sales(catalogue)->run()->write_csv(csv);
  csv.close();
  const QString command =
      QString(
          "%1 --headless -env:UserInstallation=file://%2/profile --convert-to pdf --outdir %2 "
          "%2/sales.csv >/dev/null 2>&1")
          .arg(office, folder.path());
  const auto convert = [&] { return std::system(command.toLocal8Bit().constData()); };
  convert();  // the first run makes the user's profile, which is no part of the printing
  for (auto _ : state) {
    if (convert() != 0) state.SkipWithError("the office suite failed");
  }
}

BENCHMARK(first_page)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(pdf)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(office_pdf)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace
}  // namespace tela

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
