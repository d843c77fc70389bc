// The product edit report: the changes of items' rates in a period.
#include "screens/stock/log_report.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

GridColumns columns() {
  const std::string mask = "######0.00";
  return {
      {"S.No.", 800, row_number()},
      {"CODE", 900, field(0)},
      {"LONG NAME", 4400, trimmed_field(1)},
      {"BARCODE", 1600, field(2)},
      {"M.R.P.", 900, number_field(3, mask)},
      {"OLD RATE", 1000, number_field(4, mask)},
      {"SALE RATE", 1000, number_field(5, mask)},
      {"  DATE", 1200, date_field(6, "DD/MM/YYYY")},
      {"  TIME", 1200, time_field(7, "HH:MM:SS AM/PM")},
  };
}

}  // namespace

LogReport frmProductEditReport() {
  return {
      .screen = "frmProductEditReport",
      .caption = "PRODUCT EDIT REPORT",
      .inputs = tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO")),
      .walk = {"DTP1", "DTP2", "cmdView"},
      .buttons = tab_order(button("cmdView", "&VIEW"), button("cmdDelete", "&DELETE"),
                           button("cmdprint", "PREVIE&W"), button("cmdRefresh", "&REFRESH"),
                           button("cmdClose", "E&XIT")),
      .columns = columns(),
      .look = {.bands = RowBands{1, 8}},
      .sql =
          [](const Period& period, const std::optional<std::string>&) {
            return "Select iCode,iLongName,barcode,mrp,OldRate,salerate,ModifiedDate,ModifiedTime "
                   "from ProductEdit where ModifiedDate>=" +
                   sql_text(period.from) + " and ModifiedDate<=" + sql_text(period.to);
          },
      .deletion =
          {.question =
               "DELETE THE RECORDS - (OK To DELETE THE PRODUCT EDIT REPORT, Cancel To EXIT) ",
           .table = "ProductEdit",
           .date_column = "ModifiedDate",
           .success = "PRODUCT EDIT REPORT DELETED"},
      .preview_button = "cmdprint",
      .no_preview = "No Print Or Preview Available Now",
      .keeps_period = true,
  };
}

}  // namespace tela
