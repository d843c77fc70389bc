#include "screens/purchase/frmPurchaseView.h"

#include <cmath>

#include "platform/text/number_text.h"

namespace tela {

NoteViewer frmPurchaseView::viewer() {
  return {.screen = "frmPurchaseView",
          .caption = " PURCHASE  VIEW ",
          .is_supplier = [](double code) { return code >= 1; }};
}

frmPurchaseView::frmPurchaseView(AppState& app) : GoodsReceivedNote(app, viewer()) {
  form().at("Text1").select_on_focus = true;
  on_key("Text1", Key::enter, [this] { focus("DTPicker1"); });
  for (const char* box : {"TSdiscper", "TsDiscAmt"}) {
    form().at(box).locked = false;
    form().at(box).numeric_only = true;
  }
  on_change("TSdiscper", [this] { take_percent(); });
  on_change("TsDiscAmt", [this] { take_amount(); });
  on_leave("TsDiscAmt", [this] { take_amount(); });
  on_leave("TSdiscper", [this] {
    take_percent();
    if (form().text("TSdiscper").empty()) form().set_text("TSdiscper", "0.00");
  });
}

void frmPurchaseView::take_percent() {
  const double discount = Val(form().text("LTotal")) * Val(form().text("TSdiscper")) / 100;
  form().set_text("TsDiscAmt", format_number(discount, "#########0.000"));
  take_amount();
}

// The net amount is a whole number, a half going to the even neighbour.
void frmPurchaseView::take_amount() {
  const double net = Val(form().text("LTotal")) - Val(form().text("TsDiscAmt"));
  form().set_text("LNetrate", format_number(std::nearbyint(net), "##########0.00"));
}

}  // namespace tela
