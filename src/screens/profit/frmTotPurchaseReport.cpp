#include "screens/profit/frmTotPurchaseReport.h"

#include <stdexcept>

#include "platform/text/number_text.h"
#include "report_framework/sheet_export.h"
#include "report_framework/way_back.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  return tab_order(
      date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"), button("cmdView", "&VIEW"),
      button("cmdprint", "&EXCEL"), button("cmdRefresh", "&REFRESH"), button("cmdClose", "&CLOSE"),
      grid("MSHF", 10), total_box("tTotal", "TOTAL"), total_box("tBasicAmount", "TAXABLE"),
      total_box("tCgst", "CGST"), total_box("tSgst", "SGST"), text_box("tGrnNo", "GRN No."),
      text_box("tBillNo", "BILL No."), text_box("tBillDate", "BILL DATE"),
      text_box("tSupplierName", "SUPPLIER NAME"), text_box("tAmount", "AMOUNT"),
      text_box("tInternalNo"), button("cmdDelete", "&DELETE"));
}

GridColumns columns() {
  const std::string value = "##########0.00";
  const std::string sum = "#########0.00";
  return {
      {"S. No", 700, row_number()},
      {"GRT No", 800, trimmed_field(0)},
      {"GST No", 2600, trimmed_field(1)},
      {"Bill No", 1000, trimmed_field(2)},
      {"Bill Date", 1200, date_field(3, "DD/MM/YYYY")},
      {"VALUE", 1200, number_field(4, value), {"tTotal", "########0.00"}},
      {"TAXABLE", 1200, number_field(5, value), {"tBasicAmount", sum}},
      {"CGST", 1000, number_field(6, value), {"tCgst", sum}},
      {"SGST", 1000, number_field(7, value), {"tSgst", sum}},
      {"SUPPLIER NAME", 4000, trimmed_field(8)},
  };
}

/// The boxes of the chosen bill and the columns that they are copied from.
const std::vector<std::pair<const char*, int>> kChosen = {
    {"tGrnNo", 1}, {"tBillNo", 3}, {"tBillDate", 4}, {"tSupplierName", 9}, {"tAmount", 5}};

}  // namespace

frmTotPurchaseReport::frmTotPurchaseReport(AppState& app)
    : Screen(app, "frmTotPurchaseReport", "TOT PURCHASE REPORT FOR A PERIOD", controls()),
      grid_(form(), columns(), {.bands = RowBands{1, 9}}) {
  form().at("tInternalNo").locked = true;
  key_walk({"DTP1", "DTP2", "cmdView"});
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint",
           [this] { export_sheet(this->app(), form(), sheet_layouts::frmTotPurchaseReport()); });
  on_double_click("MSHF", [this] { choose(); });
  on_change("tGrnNo", [this] { look_up_voucher(); });
  on_leave("tGrnNo", [this] { look_up_voucher(); });
  on_press("cmdDelete", [this] { delete_bill(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

std::string frmTotPurchaseReport::sql(const Period& period) {
  return "Select GrnNo,GstNo,BillNo,BillDate,NetAmount,TotalValue,TotalCGST,TotalSGST,Sname FROM "
         "PurchaseTemp where BillDate>=" +
         sql_text(period.from) + " and BillDate<=" + sql_text(period.to) + " AND TaxType='TOT'";
}

void frmTotPurchaseReport::view() {
  grid_.show(app(), sql(take_period()));
}

void frmTotPurchaseReport::choose() {
  const int row = grid_.cells().Row();
  if (grid_.number(row, 1) <= 0) return;
  for (const auto& [box, col] : kChosen) form().set_text(box, grid_.cell(row, col));
}

// While a number is being typed it may be none yet; it then has no voucher.
void frmTotPurchaseReport::look_up_voucher() {
  const std::string& bill = form().text("tGrnNo");
  if (Val(bill) <= 0) return;
  if (!is_numeric(bill)) return form().set_text("tInternalNo", "");
  const Recordset& rs =
      OpenRs(app(), "Select InternalNo from PurchaseTemp where GrnNo=" + sql_number(bill));
  form().set_text("tInternalNo", rs.eof() ? "" : field_text(rs.field(0)));
  CloseRs(app());
}

namespace {

std::string payments_sql(const std::string& bill) {
  return "Select InternalNo from SupplierCashPay where GrnNo=" + bill;
}

}  // namespace

// A bill whose header is gone but whose payments are not is one that a failure left half deleted.
bool frmTotPurchaseReport::refused_selection() {
  const auto is_no_number = [](const Form& form) {
    const std::string& bill = form.text("tGrnNo");
    return !is_numeric(bill) || Val(bill) <= 0;
  };
  if (refused(
          {is_no_number, "Please Select The Purchase Bill To Delete", Icon::critical, "tGrnNo"}))
    return true;
  const std::string bill = sql_number(form().text("tGrnNo"));
  bool found = !OpenRs(app(), "Select GrnNo from PurchaseTemp where GrnNo=" + bill).eof();
  CloseRs(app());
  if (!found) found = !OpenRs(app(), payments_sql(bill)).eof();
  const auto is_missing = [found](const Form&) { return !found; };
  return refused(
      {is_missing, "There Is No Purchase Bill With The GRN No. " + bill, Icon::critical, "tGrnNo"});
}

namespace {

/// Runs a later step of the deletion. A failure then says what is gone and what remains.
template <class Step>
void finish_deletion(const std::string& done, const std::string& remaining, Step&& step) {
  guarded(step, [&](const std::runtime_error& failure) {
    throw std::runtime_error(done + " deleted. " + remaining +
                             " still there. Press DELETE again to finish.\n(" + failure.what() +
                             ")");
  });
}

}  // namespace

// In three transactions. The entries of the payments are found through the payments, which are
// therefore deleted last; so a deletion that broke off can be finished by the number alone.
void frmTotPurchaseReport::delete_bill() {
  if (refused_selection()) return;
  if (!ask("PURCHASE BILL DELETE - (OK To DELETE THE CURRENT PURCHASE BILL, Cancel To EXIT) "))
    return;
  look_up_voucher();
  const std::string bill = sql_number(form().text("tGrnNo"));
  WayBack way_back(app(), name());
  delete_header_and_lines(way_back, bill);
  finish_deletion("The purchase bill " + bill + " is",
                  "The cash payments of the bill and their journal entries are",
                  [&] { delete_payment_entries(way_back, bill); });
  finish_deletion("The purchase bill " + bill + " and the journal entries of its payments are",
                  "The list of its cash payments is", [&] { delete_payments(way_back, bill); });
  tell("Purchase Record Deleted", Icon::information);
  view();
  for (const auto& [box, col] : kChosen) form().set_text(box, "");
  form().set_text("tInternalNo", "");
}

void frmTotPurchaseReport::remove(WayBack& way_back, const std::string& table,
                                  const std::string& key, const std::string& number) {
  const std::string rows = "where " + key + "=" + number;
  way_back.keep_removed(table, rows, {key});
  app().Con->execute("Delete from " + table + " " + rows);
}

void frmTotPurchaseReport::delete_header_and_lines(WayBack& way_back, const std::string& bill) {
  way_back.begin();
  remove(way_back, "Purchase", "GrnNo", bill);
  remove(way_back, "PurchaseTemp", "GrnNo", bill);
  const std::string& voucher = form().text("tInternalNo");
  if (!voucher.empty()) remove(way_back, "Journal", "InternalNo", sql_number(voucher));
  way_back.commit();
}

void frmTotPurchaseReport::delete_payment_entries(WayBack& way_back, const std::string& bill) {
  way_back.begin();
  for (Recordset& rs = OpenRs(app(), payments_sql(bill)); !rs.eof(); rs.move_next())
    if (!is_null(rs.field(0)))
      remove(way_back, "Journal", "InternalNo", sql_number(field_text(rs.field(0))));
  CloseRs(app());
  way_back.commit();
}

void frmTotPurchaseReport::delete_payments(WayBack& way_back, const std::string& bill) {
  way_back.begin();
  remove(way_back, "SupplierCashPay", "GrnNo", bill);
  way_back.commit();
}

}  // namespace tela
