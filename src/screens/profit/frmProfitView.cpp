#include "screens/profit/frmProfitView.h"

#include "report_framework/row_boxes.h"
#include "screens/profit/profit_report.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

const std::vector<RowBox>& header_boxes() {
  static const std::vector<RowBox> kBoxes = {
      {"tBillNo", "BILL No.", field(0)},
      {"tDate", "BILL DATE", date_field(1, "dd/mm/yyyy")},
      {"tTime", "TIME", time_field(2, "HH:MM:SS AM/PM")},
      {"tUser", "USER", trimmed_field(3)},
      {"tCounterNo", "COUNTER", field(4)},
      {"tTotal", "TOTAL", number_field(5, "#########0.00")},
  };
  return kBoxes;
}

std::vector<Control> controls() {
  std::vector<Control> all;
  for (const RowBox& box : header_boxes())
    if (box.name != "tTotal") all.push_back(text_box(box.name, box.label));
  append(all, tab_order(grid("MSHF", 8), total_box("tTotal", "TOTAL"),
                        total_box("tPercent", "PROFIT  %").hinted(kAverageHint),
                        total_box("tTotalRows", "ROWS")));
  return all;
}

GridColumns grid_columns() {
  const std::string mask = "#######0.00";
  return {
      {"S.No.", 800, row_number()},
      {"Code", 900, field(0)},
      {"Product Name", 4800, trimmed_field(1)},
      {"M.R.P.", 1000, number_field(2, mask)},
      {"Sale Rate", 1000, number_field(3, mask)},
      {"Pur_Rate", 1000, number_field(4, mask)},
      {"Qty", 800, number_field(5, mask)},
      {"Profit", 1000, number_field(6, mask)},
  };
}

}  // namespace

frmProfitView::frmProfitView(AppState& app)
    : Screen(app, "frmProfitView", "PROFIT VIEW", controls()), grid_(form(), grid_columns()) {}

std::string frmProfitView::lines_sql(const std::string& bill) {
  return "Select icode,iname,mrp,saleRate,purrate,qty,(Case when (qty * purrate)=0 then 100 WHEN "
         "(qty * purrate)<0 then (salerate- purrate)/(purrate) * 100 * -1 else (salerate-purrate) "
         "* 100 /purrate end) as ProfitPercent from Sales where BillNo=" +
         bill;
}

std::string frmProfitView::header_sql(const std::string& bill) {
  return "Select billno,billdate,BillTime,Staff,Counter,netamount from salesTemp where BillNo=" +
         bill;
}

void frmProfitView::load() {
  Screen::load();
  const std::string bill = std::to_string(app().SaleBillNo);
  grid_.show(app(), lines_sql(bill));
  read_header(bill);
  form().set_text("tPercent", "0");
  write_average(app(), form(), grid_, {7, 1, "tPercent", "####0.00", "####0.00"});
}

void frmProfitView::read_header(const std::string& bill) {
  const Recordset& rs = OpenRs(app(), header_sql(bill));
  if (!rs.eof() && !is_null(rs.field(0))) fill_boxes(form(), header_boxes(), rs);
  CloseRs(app());
}

}  // namespace tela
