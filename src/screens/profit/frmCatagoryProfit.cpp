#include "screens/profit/frmCatagoryProfit.h"

#include "screens/profit/item_profit.h"
#include "shell/sql_value.h"

namespace tela {

frmCatagoryProfit::frmCatagoryProfit(AppState& app)
    : ProfitReport(app, item_profit::definition("frmCatagoryProfit", "CATAGORY WISE PROFIT",
                                                tab_order(combo("Combo1", "CATAGORY")))) {
  key_walk({"Combo1", "DTP1"});
}

void frmCatagoryProfit::fill_lists() {
  fill_combo("Combo1", "Select Catagory from items group by Catagory order by Catagory");
  item_profit::write_stock_value(app(), form());
}

// The two orders by percentage run with an empty category too, and then list nothing.
bool frmCatagoryProfit::may_list(ProfitOrder order) {
  return order != ProfitOrder::key ||
         !refused(blank("Combo1", "Please Select The Catagory", Icon::information));
}

std::string frmCatagoryProfit::sql(const Inputs& inputs) {
  return "Insert into #TableProfit select S.icode,S.iname,S.mrp,S.salerate,S.purrate,S.qty,"
         "S.qty * S.salerate as TotalSales,S.qty * S.purrate as TotalPurchase,"
         "(S.qty * S.salerate )- (S.qty * S.purrate) as Profit," +
         percent_case("S.", "100.0") +
         " from sales S Join Items I on S.icode=I.icode where BillDate>=" +
         sql_text(inputs.period.from) + " AND BillDate<=" + sql_text(inputs.period.to) +
         " and I.Catagory=" + sql_text(inputs.category);
}

void frmCatagoryProfit::with_staged_lines(const Period& period, ProfitOrder,
                                          const std::function<void()>& list) {
  item_profit::with_table(app(), sql({period, filter()}), list);
}

}  // namespace tela
