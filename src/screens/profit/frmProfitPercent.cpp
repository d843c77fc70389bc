#include "screens/profit/frmProfitPercent.h"

#include "platform/text/number_text.h"
#include "report_framework/busy_pointer.h"
#include "screens/profit/item_profit.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  return tab_order(
      date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
      text_box("Text1", "FROM %").numeric().selected_on_focus(),
      text_box("Text2", "TO %").numeric().selected_on_focus(),
      picture_button("cmdView", "ascending"), picture_button("cmdDesc", "descending"),
      button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
      button("cmdClose", "&Close"), grid("MSHF", 11), total_box("tTotalSales", "TOTAL SALE RATE"),
      total_box("tTotalPurchase", "TOTAL PURCHASE RATE"), total_box("tTotalProfit", "TOTAL PROFIT"),
      total_box("tStock", "TOTAL STOCK VALUE"),
      total_box("tMargin", "PROFIT  %")
          .hinted("The total profit on the total purchase rate, in per cent."));
}

}  // namespace

frmProfitPercent::frmProfitPercent(AppState& app)
    : Screen(app, "frmProfitPercent", "PROFIT PERCENTAGE WISE REPORT", controls()),
      grid_(form(), item_profit::columns("#########0.00"), {.bands = RowBands{1, 10}}) {
  on_key("DTP2", Key::enter, [this] { list(false); });
  key_walk({"Text1", "Text2", "cmdView"});
  on_key("Text1", Key::up, [this] { focus("DTP2"); });
  on_key("Text2", Key::up, [this] { focus("Text1"); });
  on_press("cmdView", [this] { list(false); });
  on_press("cmdDesc", [this] { list(true); });
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void frmProfitPercent::fill_lists() {
  item_profit::write_stock_value(app(), form());
}

std::string frmProfitPercent::insert_sql(const Period& period) {
  return "Insert into ProfitPercent execute spGetProfitNew " + sql_text(period.from) + "," +
         sql_text(period.to);
}

std::string frmProfitPercent::sql(const Inputs& inputs) {
  return "select iCode,iName,Mrp,SaleRate,PurRate,Qty,SaleTotal,PurTotal,ProfitTotal,ProfitPer "
         "from "
         "ProfitPercent where ProfitPer>=" +
         sql_number(inputs.from) + " and ProfitPer<=" + sql_number(inputs.to) +
         " ORDER BY ProfitPer" + (inputs.falling ? " Desc" : "");
}

bool frmProfitPercent::refused_band() {
  const char* const missing = "Please Enter The from Percentage";
  const auto is_reversed = [](const Form& form) {
    return Val(form.text("Text2")) < Val(form.text("Text1"));
  };
  return refused(blank("Text1", missing, Icon::information)) ||
         refused(blank("Text2", missing, Icon::information)) ||
         refused(
             {is_reversed, "Error - From % is Greater than the To % ", Icon::critical, "Text1"});
}

// From the call of the procedure on, a statement that fails is passed over, and the grid shows what
// the staging table then holds: nothing. Why stands beside the work.
void frmProfitPercent::list(bool falling) {
  const Period period = take_period();
  if (refused_band()) return;
  Transaction clearing(*app().Con);
  app().Con->execute("Delete from ProfitPercent");
  clearing.commit();
  const auto hint = [this](const std::runtime_error& failure) {
    app().display.hint(failure.what());
  };
  guarded([&] { stage(period); }, hint);
  grid_.clear();
  const BusyPointer busy(app().display);
  guarded([&] { OpenRs(app(), sql({form().text("Text1"), form().text("Text2"), falling})); }, hint);
  show_band();
}

void frmProfitPercent::stage(const Period& period) {
  Transaction filling(*app().Con);
  app().Con->execute(insert_sql(period));
  filling.commit();
}

void frmProfitPercent::show_band() {
  if (app().Rs && app().Rs->is_open()) {
    grid_.fill(app(), *app().Rs);
    CloseRs(app());
  }
  grid_.finish();
  write_total_profit(form(), grid_);
  write_margin();
}

// Profit on the whole purchase value; without one there is no such share, and the box stays.
void frmProfitPercent::write_margin() {
  const double purchase = Val(form().text("tTotalPurchase"));
  if (purchase == 0) return;
  const double percent = Val(form().text("tTotalProfit")) / purchase * 100;
  form().set_text("tMargin", format_number(percent, "###0.00"));
}

void frmProfitPercent::preview() {
  if (refused(reversed("DTP1", "DTP2", kReversedProfitPeriod))) return;
  preview_profit(app(), grid_, take_period(), item_profit::staged);
}

}  // namespace tela
