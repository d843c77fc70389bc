#include "screens/tax/tax_list.h"

#include <utility>

#include "report_framework/sheet_export.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"
#include "shell/windows.h"

namespace tela {

namespace {

std::vector<Control> controls(TaxList& list) {
  const TaxWords& words = list.words;
  std::vector<Control> all = tab_order(
      date_picker("DTP1", words.from), date_picker("DTP2", words.to), button("cmdView", words.view),
      button("cmdRefresh", words.refresh), button("cmdprint", words.print));
  append(all, std::move(list.buttons));
  all.push_back(button("cmdClose", words.close));
  all.push_back(grid(list.look.name, static_cast<int>(list.columns.size())));
  append(all, std::move(list.results));
  return all;
}

}  // namespace

TaxWords mixed_words(std::string print) {
  return {" FROM", " TO", "&View", "&Refresh", std::move(print), "&Close"};
}

TaxListReport::TaxListReport(AppState& app, TaxList list)
    : Screen(app, list.screen, list.caption, controls(list)),
      list_(std::move(list)),
      grid_(form(), list_.columns, list_.look) {
  const auto view = [this] { this->list(take_period()); };
  on_press("cmdView", view);
  key_walk({"DTP1", "DTP2"});
  if (list_.after_dates.empty())
    on_key("DTP2", Key::enter, view);
  else
    key_walk({"DTP2", list_.after_dates});
  on_press("cmdRefresh", [this] { refresh(); });
  close_on("cmdClose");
  if (list_.sheet)
    on_press("cmdprint", [this] { export_sheet(this->app(), form(), list_.sheet()); });
}

void TaxListReport::list(const Period& period) {
  if (list_.staging)
    for (const Statements& statements : list_.staging(period)) {
      Transaction transaction(*app().Con);
      for (const std::string& sql : statements) app().Con->execute(sql);
      transaction.commit();
    }
  grid_.show(app(), list_.sql(period));
}

void TaxListReport::refresh() {
  if (list_.refresh_opens.empty()) return app().windows.refresh(app(), name());
  app().windows.close(app(), name());
  app().windows.open(app(), list_.refresh_opens);
}

std::string within(const std::string& column, const Period& period) {
  return column + ">=" + sql_text(period.from) + " and " + column + "<=" + sql_text(period.to);
}

}  // namespace tela
