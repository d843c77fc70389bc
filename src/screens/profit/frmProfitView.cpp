#include "screens/profit/frmProfitView.h"

#include "screens/profit/profit_report.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

struct HeaderBox {
  std::string name;
  CellSource source;
};

const std::vector<HeaderBox>& header_boxes() {
  static const std::vector<HeaderBox> kBoxes = {
      {"tBillNo", field(0)},
      {"tDate", date_field(1, "dd/mm/yyyy")},
      {"tTime", time_field(2, "HH:MM:SS AM/PM")},
      {"tUser", trimmed_field(3)},
      {"tCounterNo", field(4)},
      {"tTotal", number_field(5, "#########0.00")},
  };
  return kBoxes;
}

std::vector<Control> controls() {
  std::vector<Control> all;
  all.push_back(text_box("tBillNo", "BILL No."));
  all.push_back(text_box("tDate", "BILL DATE"));
  all.push_back(text_box("tTime", "TIME"));
  all.push_back(text_box("tUser", "USER"));
  all.push_back(text_box("tCounterNo", "COUNTER"));
  all.push_back(grid("MSHF", 8));
  all.push_back(total_box("tTotal", "TOTAL"));
  all.push_back(total_box("tPercent", "PROFIT  %"));
  all.push_back(total_box("tTotalRows", "ROWS"));
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
    : GridReport(app, "frmProfitView", "PROFIT VIEW", controls(), grid_columns(), {}) {}

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
  GridReport::load();
  const std::string bill = std::to_string(app().SaleBillNo);
  OpenRs(app(), lines_sql(bill));
  FillGrid();
  CloseRs(app());
  read_header(bill);
  write_average(app(), form(), grid(), {7, 1, "tPercent", "####0.00", "####0.00"});
}

void frmProfitView::read_header(const std::string& bill) {
  const Recordset& rs = OpenRs(app(), header_sql(bill));
  if (!rs.eof() && !is_null(rs.field(0)))
    for (const HeaderBox& box : header_boxes())
      form().set_text(box.name, cell_text(rs.field(box.source.field), box.source));
  CloseRs(app());
}

}  // namespace tela
