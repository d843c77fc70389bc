// The stock adjust report: the corrections of stock in a period.
#include "screens/stock/log_report.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

GridColumns columns() {
  const std::string mask = "######0.00";
  return {
      {"S No", 900, row_number()},
      {"CODE", 800, field(0)},
      {"Product Name", 4400, trimmed_field(1)},
      {"Op_Stock", 1400, number_field(2, mask)},
      {"Adjust Qty", 1400, number_field(3, mask)},
      {"Cl_Stock", 1400, number_field(4, mask)},
      {"Adjust Date", 1400, date_field(5, "dd/mm/yyyy")},
  };
}

LogPreview preview() {
  return {
      .reversed_period = "The Start Date is Greater Than the End Date",
      .question = "DO YOU WANT TO PRINT THE RECORD - (OK To PRINT PREVIEW, Cancel To EXIT) ",
      .clear = "Delete from StockAdjRep",
      .insert = "Insert into StockAdjRep values(",
      .values = [](const Period& period, const GridRow& row) -> std::vector<std::string> {
        return {sql_text(period.from), sql_text(period.to), row.numbers(0, 1),
                row.text(2),           row.numbers(3, 5),   row.date(6)};
      },
      .report_file = "StockAdjPrint.rpt",
      .report_query = "SELECT * FROM StockAdjRep",
  };
}

}  // namespace

LogReport frmStockAdjustReport() {
  Refusal reversed_period = reversed("DTP1", "DTP2", "Start Date is Greater Than The End Date");
  reversed_period.focus.clear();
  return {
      .screen = "frmStockAdjustReport",
      .caption = "Stock Adjust Report",
      .inputs = tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO")),
      .walk = {"DTP1", "DTP2", "cmdView"},
      .buttons = tab_order(button("cmdView", "&VIEW"), button("Command1", "&DELETE"),
                           button("cmdPreview", "PREVIE&W"), button("cmdRefresh", "&REFRESH"),
                           button("cmdClose", "E&XIT")),
      .columns = columns(),
      .look = {.bands = RowBands{1, 6}},
      .refusal = reversed_period,
      .sql =
          [](const Period& period, const std::optional<std::string>&) {
            return "select icode,iName,str(OpStock,8,2),str(AdjustQty,8,2),str(ClStock,8,2),"
                   "AdjustDate from StockAdjust where AdjustDate>=" +
                   sql_text(period.from) + " and AdjustDate<=" + sql_text(period.to) +
                   " order by icode,AdjustDate";
          },
      .deletion = {.button = "Command1",
                   .question =
                       "DELETE THE RECORDS - (OK To DELETE THE STOCK REPORT, Cancel To EXIT) ",
                   .table = "StockAdjust",
                   .date_column = "AdjustDate",
                   .success = "STOCK REPORT DELETED"},
      .preview_button = "cmdPreview",
      .preview = preview(),
  };
}

}  // namespace tela
