#include "screens/bill_sales/frmList.h"

#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

frmList::frmList(AppState& app)
    : Screen(app, "frmList", "frmList",
             tab_order(list_box("List1"), button("Command1", "Command1"))) {
  on_press("Command1", [this] { list_bills(); });
}

void frmList::list_bills() {
  Recordset& rs = OpenRs(
      app(),
      "select billno,billdate,openingtime,str(netamount,8,2)'NET "
      "AMT',str(DiscAmount,8,2)'Discount',"
      "str(Total,8,2),str(CashPaid,8,2),str(CardPaid,8,2),str(MealsPaid,8,2) from salestemp order "
      "by billdate,billno");
  for (; !rs.eof(); rs.move_next())
    form().at("List1").items.push_back(field_text(rs.field(0)) + "  " + field_text(rs.field(1)));
  CloseRs(app());
}

}  // namespace tela
