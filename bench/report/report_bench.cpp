// How long 10,000 staged rows take to their first page on the screen and to a PDF file, beside an
// office suite that prints the same table from a CSV file.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>

#include "platform/report/banded_engine.h"
#include "platform/report_qt/paged_output.h"
#include "platform/report_qt/report_viewer.h"
#include "report/fake_catalogue.h"
#include "report/staging_rows.h"

namespace tela {
namespace {

constexpr int records = 10000;

std::shared_ptr<const ReportDocument> run_report(FakeCatalogue& catalogue) {
  BandedReportEngine engine({catalogue.factory(),
                             [](std::string_view) { return "/no/folder"; },
                             TELA_SOURCE_DIR "/reports",
                             {}});
  const auto report = engine.open_report("D:\\Report\\SalesReport.rpt");
  report->set_formula("tit", "\"TELA MINI SUPER MARKET \"");
  return report->run();
}

FakeCatalogue sales() {
  FakeCatalogue catalogue;
  catalogue.rows = staging_rows(staging_tables().at("SalesPrint"), records);
  return catalogue;
}

void first_page(benchmark::State& state) {
  FakeCatalogue catalogue = sales();
  for (auto _ : state) {
    ReportViewer viewer;
    viewer.resize(1280, 900);
    viewer.set_report(run_report(catalogue));
    benchmark::DoNotOptimize(viewer.grab());
  }
}

void pdf(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("sales.pdf").toStdString();
  FakeCatalogue catalogue = sales();
  for (auto _ : state) write_pdf(*run_report(catalogue), path);
}

void office_pdf(benchmark::State& state) {
  const QString office = QStandardPaths::findExecutable("soffice");
  if (office.isEmpty()) {
    state.SkipWithError("no office suite is installed");
    return;
  }
  const QTemporaryDir folder;
  FakeCatalogue catalogue = sales();
  std::ofstream csv(folder.filePath("sales.csv").toStdString());
  run_report(catalogue)->write_csv(csv);
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
