#include "screens/tax/frmHsnSalesReport.h"

#include "report_framework/report_preview.h"
#include "report_framework/staging.h"
#include "report_framework/way_back.h"
#include "screens/tax/shared_lists.h"
#include "shell/app_state.h"
#include "shell/failure.h"

namespace tela {

namespace {

// What the tills sell over the counter stays in the state.
std::string no_integrated_tax(const Recordset&) {
  return "0.00";
}

TaxList definition() {
  TaxList list = hsn_list(number_field(3, "######0.00"), worked_out(no_integrated_tax), 4);
  list.screen = "frmHsnSalesReport";
  list.caption = "HSN SALES REPORT";
  list.words.print = "&PREVIEW";
  list.buttons = tab_order(button("cmdUpdate", "&UPDATE HSN IN SALES"));
  list.staging = frmHsnSalesReport::staging;
  list.sql = frmHsnSalesReport::sql;
  return list;
}

}  // namespace

frmHsnSalesReport::frmHsnSalesReport(AppState& app) : TaxListReport(app, definition()) {
  on_press("cmdUpdate", [this] { update(); });
  on_press("cmdprint", [this] { preview(); });
}

std::vector<Statements> frmHsnSalesReport::staging(const Period& period) {
  return {{"Delete from HsnGstReport"},
          {"Insert into HsnGstReport Select iHSNcode'HSN',sum(Qty)'QTY',sum(amount)'AMOUNT',"
           "Sum(Amount)/(iCGst+iSGst+100)*100'TAXABLE',iCGst'CGST',iSGst'SGST' from sales where " +
           within("Billdate", period) + " group by iHSNcode,iCGst,iSGst"}};
}

std::string frmHsnSalesReport::sql(const Period&) {
  return "Select iHSNcode,SUM(Qty),SUM(Amount),SUM(Taxable),SUM(Taxable * iCGst /100),"
         "SUM(Taxable * iSGst /100) from HsnGstReport GROUP BY iHSNcode order by iHSNcode";
}

std::string frmHsnSalesReport::update_sql() {
  return "Update Sales Set Sales.iHSNcode=Items.iHSNcode from Sales Join Items on "
         "Sales.icode=Items.icode";
}

void frmHsnSalesReport::update() {
  if (!ask("DO YOU WANT TO UPDATE HSN IN The SALES BILL- (OK To Update, Cancel To Exit) ")) return;
  const std::string of_items =
      "where iCode in (select iCode from Items group by iCode having count(*)";
  WayBack way_back(app(), name());
  way_back.begin();
  way_back.keep_changed(
      "Sales",
      {{"iHSNcode", "(select max(Items.iHSNcode) from Items where Items.iCode=Sales.iCode)"}},
      of_items + "=1)");
  // Of several items with one code a line gets the HSN code of any.
  way_back.keep_changed_by([&] { app().Con->execute(update_sql()); }, "Sales", {"iHSNcode"},
                           of_items + ">1)");
  way_back.commit();
  tell("Records In Sales HSN Code Updated", Icon::information);
}

void frmHsnSalesReport::preview() {
  bool staged = false;
  guarded(
      [&] {
        stage_rows(app(), rows(),
                   {.clear = "Delete From HSNSalesPrint",
                    .insert = "Insert into HSNSalesPrint values(",
                    .counted_by = 2,
                    .values = [](const GridRow& row) {
                      return std::vector{row.number(0), row.text(1), row.numbers(2, 7)};
                    }});
        staged = true;
      },
      [&](const std::runtime_error&) { tell("Error - Please Check The Values", Icon::critical); });
  if (staged) open_preview(app(), "HSN_Report.rpt", "SELECT * FROM HSNSalesPrint");
}

}  // namespace tela
