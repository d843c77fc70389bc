#include "screens/tax/frmRateOfTax.h"

#include "platform/text/number_text.h"
#include "report_framework/temporary_table.h"
#include "screens/tax/shared_lists.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

constexpr const char* kTable = "#GstTable";

GridColumns sales_columns() {
  const std::string money = "#########0.00";
  const std::string total = "###########0.00";
  return {
      {"S.No.", 800, row_number()},
      {"TOTAL SALES", 3000, number_field(0, money)},
      {"TAX RATE", 1200, number_field(1, money)},
      {"TAXABLE AMT", 2000, number_field(2, money), {"tTotalSales", total}},
      {"TAX AMOUNT", 1800, number_field(3, money), {"tTotalSalesGst", total}},
  };
}

// Behind the grid of the sales: their totals, and the purchases.
std::vector<Control> results() {
  std::vector<Control> all =
      group("         SALES REPORT",
            tab_order(total_box("tTotalSales", "TOTAL Rs."), total_box("tTotalSalesGst", ""),
                      total_box("tCess", "CESS")));
  all.push_back(grid("MSHF1", 4));
  append(all, group("        PURCHASE REPORT",
                    tab_order(total_box("tTotalPurchase", "TOTAL Rs."),
                              total_box("tTotalPurGst", ""), total_box("tCessAmount", "CESS"))));
  return all;
}

TaxList definition() {
  return {
      .screen = "frmRateOfTax",
      .caption = "RATE OF TAX REPORT",
      .words = mixed_words("EXCEL"),
      .columns = sales_columns(),
      .look = rate_look("MSHF"),
      .results = results(),
      .staging = frmRateOfTax::staging,
      .sql = frmRateOfTax::sql,
      .sheet = sheet_layouts::frmRateOfTax,
  };
}

}  // namespace

frmRateOfTax::frmRateOfTax(AppState& app)
    : TaxListReport(app, definition()),
      purchases_(form(), rate_columns("TOTAL PURCHASE", "tTotalPurchase", "tTotalPurGst"),
                 rate_look("MSHF1")) {}

std::vector<Statements> frmRateOfTax::staging(const Period& period) {
  return {{"Create Table #GstTable (Amount float,iIgst float,BasicRate float,TaxAmount float,"
           "CessPercent float)"},
          {"Insert into #GstTable Select sum(amount),iIGst,"
           "Sum(Amount)/(iIGst+CessPercent+100)*100,"
           "STR(Sum(Amount)/(iIGst+CessPercent+100)*(iIGst),10,4),CessPercent from sales Where " +
           within("BillDate", period) + " group by iIGst,CessPercent order by iIGst,CessPercent"}};
}

std::string frmRateOfTax::sql(const Period&) {
  return "Select sum(Amount),iIgst,sum(BasicRate),sum(TaxAmount) from #GstTable group by iIgst "
         "order by iIgst";
}

std::string frmRateOfTax::cess_sql(const Period& period) {
  return "Select sum(amount),iIGst,CessPercent,Sum(Amount)/(iIGst+CessPercent+100)*100,"
         "STR(Sum(Amount)/(iIGst+CessPercent+100)*(CessPercent),10,4) from sales Where " +
         within("BillDate", period) + " group by iIGst,CessPercent order by iIGst";
}

std::string frmRateOfTax::purchases_sql(const Period& period) {
  return stored_tax_by_rate("Purchase", period, " and TaxType='SGST'");
}

std::string frmRateOfTax::purchase_cess_sql(const Period& period) {
  return "Select sum(CessAmount) from PurchaseTemp where " + within("BillDate", period);
}

void frmRateOfTax::list(const Period& period) {
  TemporaryTable table(*app().Con, kTable);
  TaxListReport::list(period);
  write_cess(period);
  table.drop();
  purchases_.show(app(), purchases_sql(period));
  write_purchase_cess(period);
}

namespace {

// The cess of one rate and cess percent. Its text has room for less than 100,000.0000; what does
// not fit is worked out of the taxable value, for a cess must not be lost.
double cess_of(const Recordset& rs) {
  const std::string text = field_text(rs.field(4));
  if (is_numeric(text) || is_null(rs.field(4))) return Val(text);
  return round_decimal(field_number(rs.field(3)) * field_number(rs.field(2)) / 100, 4);
}

}  // namespace

void frmRateOfTax::write_cess(const Period& period) {
  double cess = 0;
  for (Recordset& rs = OpenRs(app(), cess_sql(period)); !rs.eof(); rs.move_next())
    cess += cess_of(rs);
  CloseRs(app());
  form().set_text("tCess", format_number(cess, "########0.00"));
}

void frmRateOfTax::write_purchase_cess(const Period& period) {
  const Recordset& rs = OpenRs(app(), purchase_cess_sql(period));
  const bool none = rs.eof() || is_null(rs.field(0));
  form().set_text("tCessAmount",
                  none ? "0.00" : cell_text(rs.field(0), number_field(0, "#######0.00")));
  CloseRs(app());
}

}  // namespace tela
