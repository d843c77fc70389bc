// Opening a shipped layout.
#include "report/shipped_report.h"

#include "platform/report/banded_engine.h"
#include "report/staging_rows.h"
#include "source_folder/source_folder.h"

namespace tela {

std::unique_ptr<Report> open_shipped(const std::string& file, FakeCatalogue& catalogue,
                                     int records) {
  BandedReportEngine engine({catalogue.factory(),
                             [](std::string_view) { return "/no/folder"; },
                             source_folder() / "reports",
                             {}});
  auto report = engine.open_report("D:\\Tela_Supermarket\\Report\\" + file);
  catalogue.rows = staging_rows(staging_tables().at(report->tables().front().location()), records);
  report->set_formula("tit", "\"TELA MINI SUPER MARKET\"");
  return report;
}

}  // namespace tela
