#include "screens/purchase/frmPurBillView.h"

#include "platform/text/number_text.h"
#include "report_framework/report_preview.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

NoteViewer frmPurBillView::viewer() {
  return {.screen = "frmPurBillView",
          .caption = "PURCHASE BILL VIEW",
          .buttons = tab_order(button("Command2", "&PRINT")),
          .cess_field = ",CessAmount",
          .lines_order = " ORDER BY iCODE",
          .bands = RowBands{1, 17, 8454016, 16777215},
          .is_supplier = [](double code) { return code > 0; }};
}

frmPurBillView::frmPurBillView(AppState& app) : GoodsReceivedNote(app, viewer()) {
  on_press("Command2", [this] { print(); });
}

namespace {

Refusal no_supplier_code() {
  return {[](const Form& form) { return Val(form.text("tcustcode")) < 1; },
          "Please Enter The Supplier Code", Icon::information};
}

}  // namespace

// Only the lines are staged; the layout makes the header of them.
void frmPurBillView::print() {
  Refusal no_bill = empty("Text1", "Please Enter The Bill No", Icon::information);
  Refusal no_name = empty("tcustname", "Please Enter The Correct Supplier Code", Icon::information);
  no_bill.focus.clear();
  no_name.focus.clear();
  if (refused(no_bill) || refused(no_supplier_code()) || refused(no_name)) return;
  Transaction staging(*app().Con);
  app().Con->execute("Delete from GrnPrint");
  app().Con->execute("Insert into GrnPrint select * from Purchase where GrnNo=" +
                     sql_number(form().text("tGrnNo")));
  staging.commit();
  open_preview(app(), "GrnReport.rpt", "SELECT * FROM GrnPrint");
}

}  // namespace tela
