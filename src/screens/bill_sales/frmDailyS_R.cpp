#include "screens/bill_sales/frmDailyS_R.h"

#include "report_framework/report_preview.h"
#include "screens/bill_sales/bill_list.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/retail_tables.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(date_picker("DTPicker1", "SELECT THE DATE"));
  all.push_back(combo("Combo1", "SELECT THE COUNTER"));
  all.push_back(text_box("tCounter"));
  all.push_back(button("cmdView", "&View"));
  all.push_back(button("cmdRefresh", "&Refresh"));
  all.push_back(button("cmdprint", "Previe&w"));
  all.push_back(grid("MSHF", 11));
  bill_list::add_results(all);
  return all;
}

}  // namespace

frmDailyS_R::frmDailyS_R(AppState& app)
    : GridReport(app, "frmDailyS_R", " DAILY SALES REPORT", controls(), bill_list::columns(),
                 bill_list::kBands) {
  key_walk({"DTPicker1", "Combo1"});
  on_key("Combo1", Key::enter, [this] { view(); });
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  drill_down_on("MSHF", 0, "FrmBillView");
}

void frmDailyS_R::fill_lists() {
  form().at("Combo1").items = counter_entries(5);
}

std::string frmDailyS_R::sql(const Inputs& inputs) {
  const std::string head = std::string(bill_list::kSelect) + "billdate='" + inputs.day;
  if (!inputs.counter) return head + "' order by billdate,billno";
  return head + "'  AND counter=" + *inputs.counter + " order by billdate,billno";
}

void frmDailyS_R::view() {
  app().FromDate = picked_date("DTPicker1");
  if (refuse_blank("Combo1", "Please Select The Counter No.", Icon::critical)) return;
  empty_grid(grid());
  OpenRs(app(), sql({app().FromDate, take_counter()}));
  FillGrid();
  write_bill_labels();
  CloseRs(app());
  TotalAll();
  RowHeading();
  ChangeCellColour();
}

void frmDailyS_R::preview() {
  if (!ask("DO YOU WANT TO PREVIEW THE RECORD- (OK To Print, Cancel To Exit ) ")) return;
  app().FromDate = picked_date("DTPicker1", "DD/MMM/YYYY");
  app().ToDate = app().FromDate;
  stage_rows(app(), grid(), bill_list::staging(grid(), {app().FromDate, app().ToDate, filter()}),
             StagingTransactions::clear_apart);
  open_preview(app(), bill_list::kReportFile, bill_list::kReportQuery);
}

}  // namespace tela
