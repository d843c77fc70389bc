#include "screens/profit/frmCatagoryProfit.h"

#include "screens/profit/profit_list.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

std::vector<Control> category_combo() {
  std::vector<Control> inputs;
  inputs.push_back(combo("Combo1", "CATAGORY"));
  return inputs;
}

}  // namespace

frmCatagoryProfit::frmCatagoryProfit(AppState& app)
    : ItemProfitReport(app, {"frmCatagoryProfit", "CATAGORY WISE PROFIT", category_combo()}) {
  key_walk({"Combo1", "DTP1"});
}

void frmCatagoryProfit::fill_lists() {
  fill_combo("Combo1", "Select Catagory from items group by Catagory order by Catagory");
  ItemProfitReport::fill_lists();
}

// The two orderings by percentage run with an empty category too, and then list nothing.
bool frmCatagoryProfit::may_list(Order order) {
  return order != Order::item ||
         !refuse_blank("Combo1", "Please Select The Catagory", Icon::information);
}

std::string frmCatagoryProfit::staging_sql(const Inputs& inputs) {
  return "Insert into #TableProfit select S.icode,S.iname,S.mrp,S.salerate,S.purrate,S.qty,"
         "S.qty * S.salerate as TotalSales,S.qty * S.purrate as TotalPurchase,"
         "(S.qty * S.salerate )- (S.qty * S.purrate) as Profit," +
         profit_list::percent_case("S.", "100.0") +
         " from sales S Join Items I on S.icode=I.icode where BillDate>='" + inputs.from +
         "' AND BillDate<='" + inputs.to + "' and I.Catagory='" + sql_quoted(inputs.category) + "'";
}

}  // namespace tela
