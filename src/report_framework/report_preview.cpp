#include "report_framework/report_preview.h"

#include <utility>

#include "platform/text/strings.h"
#include "shell/failure.h"
#include "shell/report_window.h"
#include "shell/windows.h"

namespace tela {

namespace {

// The text of a formula field is a formula, so a value needs its quotes.
std::string formula(const std::string& value) {
  return '"' + value + '"';
}

// The load of form1: the operations on the engine, in their order.
void load(AppState& app, ReportWindow& form1) {
  app.CrApp = app.platform.make_report_engine();
  app.CrReport = app.CrApp->open_report(app.ReportDir + "\\" + app.ReportFile);
  auto& tables = app.CrReport->tables();
  tables.front().set_logon_info({app.CrServer, app.DbName, app.DbUser, app.DbPassword});
  for (ReportTable& table : tables) table.set_location(table.location());
  app.CrReport->set_query(form1.query);
  app.CrReport->set_formula("tit", formula(app.ShopTitle));
  app.CrReport->set_formula("add", formula(app.ShopAddress));
  form1.document = app.CrReport->run();
}

}  // namespace

void open_preview(AppState& app, std::string_view report_file, std::string_view tsql) {
  app.windows.close_preview(app);
  app.ReportFile = report_file;
  ReportWindow form1{app.ReportFile, std::string(trimmed(tsql))};
  pass_over([&] { load(app, form1); });
  app.windows.show_preview(app, std::move(form1));
}

}  // namespace tela
