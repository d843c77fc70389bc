// The product purchase report: what was bought in a period, one row for each item and its prices,
// from one supplier or from all.
#include "screens/purchase/purchase_list.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::string items_sql(const PurchaseInputs& inputs, std::size_t order) {
  static const std::vector<std::string> kOrders = {"", " Order by TotalQty",
                                                   " Order by TotalQty Desc"};
  // The ordered lists of one supplier have always had two blanks here.
  const bool two_blanks = inputs.supplier && order > 0;
  return "Select iCODE,iName,SUM(Qty),SUM(FQty),SUM(QTY)+SUM(FQTY) as TotalQty,mrp,PurRate,"
         "PurRate*SUM(qty),sum(DiscAmt),sum(Amount),sum(iCGstAmt+iSGstAmt+iIGstAmt),sum(Total) "
         "from Purchase where BILLDATE>=" +
         sql_text(inputs.period.from) + " and billdate<=" + sql_text(inputs.period.to) +
         (inputs.supplier ? " and sname=" + sql_text(*inputs.supplier) : "") +
         " GROUP BY ICODE,INAME,MRP,PurRate" + (two_blanks ? " " : "") + kOrders[order];
}

GridColumns columns() {
  const std::string mask = "#######0.00";
  return {
      {"S No", 700, row_number()},
      {"Code", 700, field(0)},
      {"Product Name", 3600, trimmed_field(1)},
      {"Qty", 700, number_field(2, mask)},
      {"Free", 700, number_field(3, mask)},
      {"Total Qty", 1000, number_field(4, mask)},
      {"M.R.P.", 1000, number_field(5, mask)},
      {"Pur_Rate", 1000, number_field(6, mask)},
      {"Pur_Value", 1200, number_field(7, mask)},
      {"Tot_Disc", 1000, number_field(8, mask)},
      {"Amount", 1000, number_field(9, mask)},
      {"Tax Amt", 1000, number_field(10, mask)},
      {"Net Amt", 1000, number_field(11, mask)},
  };
}

std::vector<std::string> staged(const GridRow& row) {
  return {row.numbers(0, 1), row.text(2), row.numbers(3, 12)};
}

}  // namespace

PurchaseList frmItemPurchaseReport() {
  return {
      .screen = "frmItemPurchaseReport",
      .caption = "ITEMWISE PURCHASE REPORT",
      .controls =
          tab_order(combo("Combo1", "SELECT THE SUPPLIER"), date_picker("DTP1", "FROM"),
                    date_picker("DTP2", "TO"), button("cmdView", "&View"),
                    picture_button("cmdAss", "ascending"), picture_button("CmdDesc", "descending"),
                    button("cmdprint", "Previe&w"), button("cmdRefresh", "&Refresh"),
                    button("cmdClose", "&Close"), grid("MSHF", 13)),
      .walk = {"Combo1", "DTP1", "DTP2"},
      .enter_lists = "DTP2",
      .orders = {"cmdView", "cmdAss", "CmdDesc"},
      .list_sql = "Select sname from PurchaseTemp group by sname order by sname",
      .all_entry = "ALL SUPPLIERS",
      .sql = items_sql,
      .columns = columns(),
      .look = {.bands = RowBands{1, 12}},
      .preview =
          PurchasePreview{
              .button = "cmdprint",
              .refusals = {reversed("DTP1", "DTP2", "The Start Date Is Greater Than The End Date")},
              .table = "fItemPurRep",
              .values = staged,
              .report_file = "fItemPurPrint.rpt"},
  };
}

}  // namespace tela
