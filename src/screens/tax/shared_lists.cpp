#include "screens/tax/shared_lists.h"

#include <utility>

namespace tela {

TaxList bills_by_rate(std::string party) {
  const std::string money = "######0.00";
  const std::string total = "##########0.00";
  TaxList list;
  list.columns = {
      {"S. No", 800, row_number()},
      {"GST No", 2300, trimmed_field(0)},
      {"Bill No", 1200, trimmed_field(1)},
      {"Bill Date", 1200, date_field(2, "DD/MM/YYYY")},
      // The bill's own value, which stands in each of its rows: it has no total.
      {"VALUE", 1200, number_field(3, money)},
      {"GST %", 1000, number_field(4, "######0")},
      {"TAXABLE", 1200, number_field(5, money), {"tIgst", total}},
      {"TAX AMT", 1200, number_field(6, money), {"tCgst", total}},
      {std::move(party), 4600, trimmed_field(7)},
  };
  list.results = tab_order(total_box("tIgst", "TAXABLE"), total_box("tCgst", "TAX "));
  return list;
}

TaxList purchase_bills(const std::string& type, const std::vector<PurchaseTax>& taxes) {
  const std::string money = "##########0.00";
  const std::string total = "#########0.00";
  TaxList list;
  list.columns = {
      {"S. No", 700, row_number()},
      {"GST No", 2600, trimmed_field(0)},
      {"Bill No", 1000, trimmed_field(1)},
      {"Bill Date", 1200, date_field(2, "DD/MM/YYYY")},
      {"VALUE", 1200, number_field(3, money), {"tTotal", "########0.00"}},
      {"TAXABLE", 1200, number_field(4, money), {"tBasicAmount", total}},
  };
  list.results = tab_order(total_box("tTotal", "TOTAL"), total_box("tBasicAmount", "TAXABLE"));
  std::string fields;
  int next = 5;
  for (const PurchaseTax& tax : taxes) {
    list.columns.push_back({tax.header, 1000, number_field(next++, money), {tax.box, total}});
    list.results.push_back(total_box(tax.box, tax.header));
    fields += tax.column + ",";
  }
  list.columns.push_back({"SUPPLIER NAME", 4000, trimmed_field(next)});
  list.sql = [type, fields](const Period& period) {
    return "Select GstNo,BillNo,BillDate,NetAmount,TotalValue," + fields +
           "Sname FROM PurchaseTemp where " + within("BillDate", period) + " AND TaxType='" + type +
           "'";
  };
  return list;
}

TaxList hsn_list(CellSource taxable, CellSource integrated, int central) {
  const std::string money = "######0.00";
  const std::string total = "##########0.00";
  TaxList list;
  list.columns = {
      {"S. No", 1000, row_number()},
      {"HSN No", 1800, trimmed_field(0)},
      {"Total Qty", 1400, number_field(1, "#######0.00")},
      {"VALUE", 1400, number_field(2, money)},
      {"TAXABLE", 1400, std::move(taxable), {"tBasicAmount", total}},
      {"IGST", 1400, std::move(integrated), {"tIgst", total}},
      {"CGST", 1400, number_field(central, money), {"tCgst", total}},
      {"SGST", 1400, number_field(central + 1, money), {"tSgst", total}},
  };
  list.results = tab_order(total_box("tBasicAmount", "BASIC AMOUNT"), total_box("tIgst", "IGST"),
                           total_box("tCgst", "CGST"), total_box("tSgst", "SGST"));
  return list;
}

GridColumns rate_columns(std::string amount, std::string amount_box, std::string tax_box) {
  const std::string money = "#########0.00";
  const std::string total = "###########0.00";
  return {
      {"S.No.", 800, row_number()},
      {std::move(amount), 3000, number_field(0, money), {std::move(amount_box), total}},
      {"TAX RATE", 2000, number_field(1, money)},
      {"TAX AMOUNT", 2000, number_field(2, money), {std::move(tax_box), total}},
  };
}

GridLook rate_look(std::string grid) {
  return {.name = std::move(grid),
          .size = FillSize::blank_row_behind,
          .headed_at_load = false,
          .blank_row_counts = true};
}

std::string stored_tax_by_rate(const std::string& table, const Period& period,
                               const std::string& type) {
  return "Select sum(Amount),iIGst,sum(iCGstAmt + iSGstAmt + iIGstAmt) from " + table + " where " +
         within("BillDate", period) + type + " group by iIGst order by iIGst";
}

}  // namespace tela
