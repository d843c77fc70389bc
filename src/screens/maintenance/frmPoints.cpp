#include "screens/maintenance/frmPoints.h"

#include "platform/text/strings.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

frmPoints::frmPoints(AppState& app)
    : Screen(
          app, "frmPoints", "SALE POINTS",
          tab_order(text_box("Text1", "Points Value").numeric().selected_on_focus(),
                    check_box("Check1", "Cash Sales Points"),
                    check_box("Check2", "Credit Sale Points"),
                    check_box("Check3", "Home Delivery Points"), button("cmdModify", "&MODIFY"))) {
  key_walk({"Text1", "Check1", "Check2", "Check3", "cmdModify"});
  on_press("cmdModify", [this] { modify(); });
}

void frmPoints::load() {
  Screen::load();
  const Recordset& rs =
      OpenRs(app(), "Select str(PointAmt,8,2),CashPoint,CreditPoint,HomePoint from PointsSet");
  if (!rs.eof() && !is_null(rs.field(0))) {
    form().set_text("Text1", field_text(rs.field(0)));
    for (int check = 1; check <= 3; ++check)
      form().set_text("Check" + std::to_string(check),
                      field_number(rs.field(check)) == 0 ? "0" : "1");
  }
  CloseRs(app());
}

std::string frmPoints::sql(const Inputs& inputs) {
  if (trimmed(inputs.amount).empty()) throw ValueError("The value of a point is missing.");
  return "update PointsSet set PointAmt=" + sql_number(inputs.amount) +
         ",CashPoint=" + sql_number(inputs.cash) + ",CreditPoint=" + sql_number(inputs.credit) +
         ",HomePoint=" + sql_number(inputs.home);
}

void frmPoints::modify() {
  guarded(
      [this] {
        Transaction change(*app().Con);
        app().Con->execute(sql({form().text("Text1"), form().text("Check1"), form().text("Check2"),
                                form().text("Check3")}));
        change.commit();
        tell("Records Modified", Icon::information);
      },
      [this](const std::runtime_error&) {
        tell("Please Enter The Correct Values", Icon::information);
      });
}

}  // namespace tela
