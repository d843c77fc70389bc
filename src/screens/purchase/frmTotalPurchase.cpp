// The total purchase report: what was bought from each supplier in a period. A supplier whose name,
// GST number or tax type changed between bills has a row for each.
#include "screens/purchase/purchase_list.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::string suppliers_sql(const PurchaseInputs& inputs, std::size_t order) {
  static const std::vector<std::string> kOrders = {"Scode", "Total", "Total Desc"};
  return std::string("Select Scode,Sname,GstNo,TaxType,sum(NetAmount)") +
         (order == 0 ? "" : " as Total") +
         " from PurchaseTemp where BillDate>=" + sql_text(inputs.period.from) +
         " and BillDate<=" + sql_text(inputs.period.to) +
         " group by Scode,Sname,GstNo,TaxType Order by " + kOrders[order];
}

GridColumns columns() {
  return {
      {"S. No", 800, row_number()},
      {"Code", 800, field(0)},
      {"Supplier Name", 5000, trimmed_field(1)},
      {"GST Number", 2300, trimmed_field(2)},
      {"Tax Type", 1000, trimmed_field(3)},
      {"Total", 1400, number_field(4, "######0.00"), {"tTotal", "##########0.00"}},
  };
}

}  // namespace

PurchaseList frmTotalPurchase() {
  return {
      .screen = "frmTotalPurchase",
      .caption = "TOTAL PURCHASE REPORT  - FOR A PERIOD",
      .controls =
          tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
                    button("cmdView", "&VIEW"), picture_button("cmdAss", "ascending"),
                    picture_button("CmdDesc", "descending"), button("cmdRefresh", "&REFRESH"),
                    button("cmdClose", "&CLOSE"), grid("MSHF", 6), total_box("tTotal", "")),
      .walk = {"DTP1", "DTP2", "cmdView"},
      .orders = {"cmdView", "cmdAss", "CmdDesc"},
      .sql = suppliers_sql,
      .columns = columns(),
      .look = {.bands = RowBands{1, 5}, .counted_by = 1},
  };
}

}  // namespace tela
