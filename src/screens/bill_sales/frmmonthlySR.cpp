#include "screens/bill_sales/frmmonthlySR.h"

#include "report_framework/report_preview.h"
#include "screens/bill_sales/bill_list.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/retail_tables.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(date_picker("DTP1", " FROM"));
  all.push_back(date_picker("DTP2", " TO"));
  all.push_back(combo("Combo1", "COUNTER"));
  all.push_back(text_box("tCounter"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(button("cmdAss", "Ascending Order"));
  all.push_back(button("CmdDesc", "Descending Order"));
  all.push_back(button("cmdPreview", "Previe&w"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdClose", "&Close"));
  all.push_back(grid("MSHF", 11));
  bill_list::add_results(all, "MOBILE PAY");
  return all;
}

std::string order_by(frmmonthlySR::Order order) {
  switch (order) {
    case frmmonthlySR::Order::bill:
      return " order by billno";
    case frmmonthlySR::Order::total_rising:
      return " order by Total Asc";
    case frmmonthlySR::Order::total_falling:
      return " order by Total Desc";
  }
  return {};
}

}  // namespace

frmmonthlySR::frmmonthlySR(AppState& app)
    : GridReport(app, "frmmonthlySR", "   MONTHLY SALES REPORT", controls(), bill_list::columns(),
                 bill_list::kBands) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_press("cmdView", [this] { list(Order::bill); });
  on_press("cmdAss", [this] { list(Order::total_rising); });
  on_press("CmdDesc", [this] { list(Order::total_falling); });
  on_press("cmdPreview", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
  drill_down_on("MSHF", 0, "FrmBillView");
}

void frmmonthlySR::fill_lists() {
  form().at("Combo1").items = counter_entries(6);
}

std::string frmmonthlySR::sql(const Inputs& inputs) {
  return std::string(bill_list::kSelect) + "billdate>='" + inputs.from + "' AND BILLDATE<='" +
         inputs.to + "'" + (inputs.counter ? " AND counter=" + *inputs.counter : "") +
         order_by(inputs.order);
}

std::string frmmonthlySR::range_sql(const Inputs& inputs) {
  // The list by bill number has always had two blanks here, the other two orders one.
  const std::string condition = inputs.order == Order::bill ? "  AND counter=" : " AND counter=";
  return "Select isnull(min(billno),0),isnull(max(BillNo),0) from SalesTemp where billdate>='" +
         inputs.from + "' AND BILLDATE<='" + inputs.to + "'" +
         (inputs.counter ? condition + *inputs.counter : "");
}

void frmmonthlySR::list(Order order) {
  take_period();
  empty_grid(grid());
  if (refuse_blank("Combo1", "Please Select The Counter No.", Icon::critical)) return;
  const Inputs inputs{app().FromDate, app().ToDate, take_counter(), order};
  const Recordset& rs = OpenRs(app(), sql(inputs));
  if (rs.record_count() > kMostRows) {
    tell("Too Many Records - Please Select Minimum Period", Icon::information);
    return CloseRs(app());
  }
  form().set_text("lTotalBills", std::to_string(rs.record_count()));
  FillGrid();
  CloseRs(app());
  read_bill_range(inputs);
  RowHeading();
  ChangeCellColour();
  TotalAll();
}

void frmmonthlySR::read_bill_range(const Inputs& inputs) {
  const Recordset& rs = OpenRs(app(), range_sql(inputs));
  form().set_text("lStart", field_text(rs.field(0)));
  form().set_text("lEnd", field_text(rs.field(1)));
  CloseRs(app());
}

void frmmonthlySR::preview() {
  take_period("DTP1", "DTP2", "DD/MMM/YYYY");
  stage_rows(app(), grid(), bill_list::staging(grid(), {app().FromDate, app().ToDate, filter()}),
             StagingTransactions::clear_apart);
  open_preview(app(), bill_list::kReportFile, bill_list::kReportQuery);
}

}  // namespace tela
