#include "screens/tax/frmDateWise.h"

#include "platform/text/number_text.h"
#include "report_framework/report_preview.h"
#include "report_framework/staging.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"

namespace tela {

namespace {

constexpr const char* kMoney = "#########0.00";

GridColumns day_columns() {
  const std::string total = "########0.00";
  return {
      {"S.No", 800, row_number()},
      {"Start No", 1200, field(0)},
      {"End No.", 1200, field(1)},
      {"Bill Date", 1300, date_field(2, "dd/mm/yyyy")},
      {"Amount", 2000, number_field(3, kMoney), {"Text2", total}},
      {"Taxable Amt", 2000, number_field(4, kMoney), {"Text3", total}},
      {"CGST Amt", 1800, number_field(5, kMoney), {"Text4", total}},
      {"SGST Amt", 1800, number_field(6, kMoney), {"Text5", total}},
  };
}

// The tax of a rate is what its two other cells differ by, as they are shown.
std::string tax_of_rate(const Recordset& rs) {
  const auto shown = [&](int field) {
    return Val(cell_text(rs.field(field), number_field(field, kMoney)));
  };
  return format_number(shown(0) - shown(2), kMoney);
}

GridColumns rate_columns() {
  return {
      {"S.No.", 800, row_number()},
      {"TOTAL SALES", 2000, number_field(0, kMoney)},
      {"TAX RATE", 2000, number_field(1, kMoney)},
      {"TAXABLE VALUE", 2000, number_field(2, kMoney)},
      {"TAX AMOUNT", 2000, worked_out(tax_of_rate)},
  };
}

TaxList definition() {
  Control totals_caption = text_box("Text1").with_text("TOTAL Rs.");
  totals_caption.locked = true;
  return {
      .screen = "frmDateWise",
      .caption = "DATE WISE SALES RFEPORT",
      .words = mixed_words("Previe&w"),
      .columns = day_columns(),
      .look = {.bands = RowBands{0, 7}, .size = FillSize::blank_row_behind},
      .results =
          tab_order(std::move(totals_caption), total_box("Text2", ""), total_box("Text3", ""),
                    total_box("Text4", ""), total_box("Text5", ""), grid("MSHFlexGrid1", 5)),
      .after_dates = "",
      .staging = frmDateWise::staging,
      .sql = frmDateWise::sql,
  };
}

}  // namespace

frmDateWise::frmDateWise(AppState& app)
    : TaxListReport(app, definition()), rates_(form(), rate_columns(), {.name = "MSHFlexGrid1"}) {
  on_press("cmdprint", [this] { preview(); });
}

std::vector<Statements> frmDateWise::staging(const Period& period) {
  return {
      {"Delete from DailyGstTable", "Delete from DailyGstTable1"},
      {"Insert into DailyGstTable Select BillNo,BillDate,iCGst,iSGst,Sum(Amount),"
       "Sum(Amount)/(iCGst+iSGst+100)*100 from Sales Where " +
       within("BillDate", period) + " group by BillNo,BillDate,iCGst,iSGst  ORDER By iCGst,iSGst"},
      {"Insert into DailyGstTable1 select billno,billdate,sum(amount),sum(BasicAmount),"
       "sum(basicamount) * iCgst/100,sum(basicamount) * iSgst/100 from DailyGstTable "
       "group by BillNo,billdate,iCgst,iSgst"}};
}

std::string frmDateWise::sql(const Period&) {
  return "select min(billno),max(BillNo),BillDate,sum(Amount),sum(BasicAmount),sum(iCgst),"
         "sum(iSgst) from DailyGstTable1 group by Billdate ORDER BY Billdate";
}

std::string frmDateWise::rates_sql(const Period& period) {
  return "Select sum(amount),iIGst,Sum(Amount)/(iIGst+100)*100 from sales Where " +
         within("BillDate", period) + " group by iIGst order by iIGst";
}

void frmDateWise::list(const Period& period) {
  TaxListReport::list(period);
  rates_.clear();
  rates_.cells().SetRows(1);
  pass_over([&] {
    rates_.fill(app(), OpenRs(app(), rates_sql(period)));
    CloseRs(app());
  });
  rates_.RowHeading();
}

void frmDateWise::preview() {
  stage_rows(app(), rows(),
             {.clear = "Delete from GstDateWisePrint",
              .insert = "Insert into GstDateWisePrint values(",
              .counted_by = 1,
              .any_text_counts = true,
              .values = [](const GridRow& row) {
                return std::vector{row.numbers(0, 2), row.date(3), row.numbers(4, 7)};
              }});
  tell("Records Saved", Icon::information);
  open_preview(app(), "GST_Date_Report1.rpt", "SELECT * FROM GstDateWisePrint");
}

}  // namespace tela
