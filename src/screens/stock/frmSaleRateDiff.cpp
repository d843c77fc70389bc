// Sale rate difference: the bill lines whose rate was changed at the till, by counter.
#include "screens/stock/log_report.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

GridColumns columns() {
  const std::string mask = "#########0.00";
  return {
      {"BILL NO", 900, field(0)},
      {"BILL DATE", 1200, date_field(1, "DD/MM/YYYY")},
      {"BILL TIME", 1200, time_field(2, "HH:MM AM/PM")},
      {"C.No.", 700, field(3)},
      {"Staff Name", 2200, trimmed_field(4)},
      {"Code", 1000, field(5)},
      {"Product Name", 3200, trimmed_field(6)},
      {"M.R.P", 900, number_field(7, mask)},
      {"Changed", 1000, number_field(8, mask)},
      {"Actual", 1000, number_field(9, mask)},
      {"Diff.", 900, number_field(10, mask), {"tTotal", "#######0.00"}},
  };
}

std::string sql(const Period& period, const std::optional<std::string>& counter) {
  return "Select B.BillNo,B.BillDate,S.BillTime,B.Counter,B.Staff,B.iCode,B.iName,B.Mrp,B.SaleRate,"
         "B.SaleRateA,B.SaleRateA-B.SaleRate from BillRateChanged B Join SalesTemp S on "
         "B.BillNo=S.BillNo where B.Billdate>=" +
         sql_text(period.from) + " and B.BillDate<=" + sql_text(period.to) +
         (counter ? "  AND B.counter=" + *counter : "") + " Order by B.BillNo";
}

}  // namespace

LogReport frmSaleRateDiff() {
  return {
      .screen = "frmSaleRateDiff",
      .caption = "SALE RATE DIFFERENCE - REPORT FOR A PERIOD",
      .inputs = tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                          combo("Combo1", "COUNTER")),
      .walk = {"DTP1", "DTP2", "Combo1", "cmdView"},
      .buttons = tab_order(button("cmdView", "&View"), button("cmdDelete", "&Delete"),
                           button("cmdPreview", "Previe&w"), button("cmdRefresh", "&Refresh"),
                           button("cmdClose", "&Close")),
      .columns = columns(),
      .total_label = "DIFFERENCE",
      .look = {.bands = RowBands{0, 10}, .counted_by = 0},
      .drills_down = true,
      .refusal = blank("Combo1", "Please Select The Counter No."),
      .by_counter = true,
      .sql = sql,
      .deletion = {.question = "DELETE THE RECORDS - (OK To DELETE THE REPORT, Cancel To EXIT) ",
                   .table = "BillRateChanged",
                   .date_column = "BillDate",
                   .success = "REPORT DELETED"},
      .preview_button = "cmdPreview",
      .no_preview = "No Print or Preview Available Now",
  };
}

}  // namespace tela
