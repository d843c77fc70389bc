#include "screens/graphs/frmBarChartCost.h"

#include "report_framework/temporary_table.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> item_boxes() {
  auto boxes = tab_order(text_box("Text1", "CODE").numeric().selected_on_focus(),
                         text_box("Text2", "PRODUCT NAME"));
  boxes.back().locked = true;
  return boxes;
}

}  // namespace

frmBarChartCost::frmBarChartCost(AppState& app)
    : ChartScreen(app, "frmBarChartCost", "COST VERIATION FOR A PERIOD", item_boxes()) {
  on_change("Text1", [this] { look_up_name(); });
  on_leave("Text1", [this] { look_up_name(); });
  on_key("Text1", Key::enter, [this] {
    if (!form().text("Text2").empty()) focus("DTP1");
  });
}

std::string frmBarChartCost::name_sql(const std::string& code) {
  return "Select iLongName from Items where icode=" + sql_number(code);
}

std::string frmBarChartCost::rates_sql(const Period& period, const std::string& code) {
  return "Insert into #CostCompare Select SaleRate from Sales where billdate>='" + period.from +
         "' and billdate<='" + period.to + "' and iCode=" + sql_number(code) + " group by SaleRate";
}

void frmBarChartCost::look_up_name() {
  const std::string& code = form().text("Text1");
  if (code.empty()) return;  // nothing to look up, and the name stays
  pass_over([&] {
    const Recordset& rs = OpenRs(app(), name_sql(code));
    form().set_text("Text2", rs.eof() ? "" : cell_text(rs.field(0), trimmed_field(0)));
    CloseRs(app());
  });
}

void frmBarChartCost::view() {
  if (refused(blank("Text1", "Please Enter The Code No.", Icon::information))) return;
  Refusal unknown = blank("Text2", "Please Enter The Correct Code No.", Icon::information);
  unknown.focus = "Text1";
  if (refused(unknown)) return;
  const Period period = take_period();
  TemporaryTable rates(*app().Con, "#CostCompare");
  Transaction filling(*app().Con);
  app().Con->execute("Create Table #CostCompare (SaleRate float)");
  app().Con->execute(rates_sql(period, form().text("Text1")));
  filling.commit();
  draw("Select Top 30 SaleRate from #CostCompare group by SaleRate order by SaleRate",
       {"Cost Comparision", labelled(field(0)), number_field(0, "########0"), true});
  rates.drop();
}

}  // namespace tela
