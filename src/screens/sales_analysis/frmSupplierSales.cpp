// Supplier sales: what was sold of one supplier's items. The supplier is the one that the item
// names today.
#include "screens/sales_analysis/filtered_sales.h"

namespace tela {

SalesFilter frmSupplierSales() {
  return {
      .screen = "frmSupplierSales",
      .caption = "SUPPLIER WISE SALES",
      .label = "SELECT THE SUPPLIER",
      .list_sql = "select Supplier from Items Group by Supplier order by Supplier",
      .blank_message = "Please Select the Supplier Name",
      .column = "I.SUPPLIER",
      .condition = "I.SUPPLIER",
      .source = "I.SUPPLIER from sales S Join ITEMS I On S.iCode=I.iCode",
      .aliased_head = {},
      .descending = "Desc",
      .report_file = "SupplierItemReport.rpt",
  };
}

}  // namespace tela
