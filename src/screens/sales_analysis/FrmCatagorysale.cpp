// Category sales: what was sold of one item category.
#include "screens/sales_analysis/filtered_sales.h"

namespace tela {

SalesFilter FrmCatagorysale() {
  return {
      .screen = "FrmCatagorysale",
      .caption = "CATAGORY WISE SALES",
      .label = "SELECT THE CATAGORY",
      .list_sql = "select distinct catagory from items order by catagory ",
      .blank_message = "Please Select the Category",
      .column = "I.CATAGORY",
      .condition = "I.catagory",
      .source = "I.CATAGORY from sales S Join ITEMS I on S.iCode=I.iCode",
      .aliased_head =
          "select S.icode'CODE',S.iname'ITEM NAME',S.mrp,S.salerate,sum(S.qty)'QTY',"
          "sum(S.qty) * S.salerate,",
      .descending = "desc",
      .report_file = "CatagoryReport.rpt",
  };
}

}  // namespace tela
